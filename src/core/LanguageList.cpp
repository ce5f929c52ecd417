#include "core/LanguageList.h"

#include <QSet>

const QStringList& LanguageList::names()
{
    static const QStringList list =
        QStringLiteral(
            "English|Russian|Spanish|French|German|Italian|Portuguese|Dutch|Polish|Ukrainian|Turkish|Arabic|"
            "Hebrew|"
            "Persian|Hindi|Bengali|Urdu|Punjabi|Tamil|Telugu|Marathi|Gujarati|Kannada|Malayalam|Chinese "
            "(Simplified)|"
            "Chinese "
            "(Traditional)|Japanese|Korean|Thai|Vietnamese|Indonesian|Malay|Filipino|Burmese|Khmer|Lao|"
            "Mongolian|Greek|Czech|Slovak|Hungarian|Romanian|Bulgarian|Serbian|Croatian|Bosnian|Slovenian|"
            "Macedonian|"
            "Albanian|Lithuanian|Latvian|Estonian|Finnish|Swedish|Norwegian|Danish|Icelandic|Irish|Welsh|"
            "Catalan|"
            "Basque|Galician|Maltese|Georgian|Armenian|Azerbaijani|Kazakh|Uzbek|Kyrgyz|Tajik|Turkmen|"
            "Belarusian|"
            "Swahili|Amharic|Hausa|Yoruba|Igbo|Zulu|Xhosa|Afrikaans|Somali|Nepali|Sinhala|Pashto|Kurdish|"
            "Sundanese|"
            "Javanese|Cebuano|Haitian "
            "Creole|Latin|Esperanto|Luxembourgish|Frisian|Hawaiian|Maori|Samoan|Yiddish|"
            "Tibetan|Bhojpuri|Odia")
            .split(QLatin1Char('|'));
    return list;
}

bool LanguageList::contains(const QString& name)
{
    static const QSet<QString> set(names().cbegin(), names().cend());
    return set.contains(name);
}
