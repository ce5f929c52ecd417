#include "panels/LanguageShortCode.h"

#include <QHash>
#include <QLocale>
#include <map>

namespace {

// English language name in lower case to its ISO 639-1 code; the alphabetically first code wins a tie.
const QHash<QString, QString>& isoCodesByName()
{
    static const QHash<QString, QString> codes = [] {
        std::map<QString, QString> byCode;
        for (int value = QLocale::AnyLanguage + 1; value <= QLocale::LastLanguage; ++value) {
            const auto language = QLocale::Language(value);
            const QString code = QLocale::languageToCode(language, QLocale::ISO639Part1);
            if (code.size() == 2) {
                byCode.emplace(code, QLocale::languageToString(language).toLower());
            }
        }
        QHash<QString, QString> result;
        for (const auto& [code, name] : byCode) {
            if (!result.contains(name)) {
                result.insert(name, code);
            }
        }
        return result;
    }();
    return codes;
}

} // namespace

QString LanguageShortCode::of(const QString& languageName)
{
    if (languageName == u"Chinese (Simplified)" || languageName == u"Chinese (Traditional)") {
        return QStringLiteral("ZH");
    }
    if (languageName == u"Filipino") {
        return QStringLiteral("TL");
    }
    const QString code = isoCodesByName().value(languageName.toLower());
    return (code.isEmpty() ? languageName : code).left(2).toUpper();
}
