#include "text/CharacterMap.h"

#include <QChar>
#include <bitset>
#include <memory>

namespace {

// UTF-16 units that are already in composed form when they stand alone. Only units with a canonical
// decomposition can change under NFC (singletons such as U+212B ANGSTROM SIGN do), so only those are tried.
const std::bitset<0x10000>& stableUnits()
{
    static const std::unique_ptr<std::bitset<0x10000>> units = [] {
        auto bits = std::make_unique<std::bitset<0x10000>>();
        for (char32_t c = 0; c < 0x10000; ++c) {
            const QChar ch(static_cast<char16_t>(c));
            if (ch.isSurrogate())
                continue;
            const bool hangulSyllable = c >= 0xAC00 && c <= 0xD7A3;
            if (hangulSyllable || ch.decompositionTag() != QChar::Canonical) {
                bits->set(c);
                continue;
            }
            const QString alone(ch);
            bits->set(c, alone.normalized(QString::NormalizationForm_C) == alone);
        }
        return bits;
    }();
    return *units;
}

} // namespace

CharacterMap::Key::Key(QStringView character)
{
    if (character.size() == 1 && stableUnits().test(character.front().unicode())) {
        m_singleUnit = true;
        m_unit = character.front().unicode();
        return;
    }
    QString composed = character.toString().normalized(QString::NormalizationForm_C);
    if (composed.size() == 1) {
        m_singleUnit = true;
        m_unit = composed.front().unicode();
        return;
    }
    m_text = std::move(composed);
}

void CharacterMap::insert(QStringView from, QStringView to)
{
    const Key key(from);
    if (key.isSingleUnit())
        m_singleUnit.insert(key.unit(), to.toString());
    else
        m_multiUnit.insert(key.text(), to.toString());
}

const QString* CharacterMap::find(const Key& key) const
{
    if (key.isSingleUnit()) {
        const auto it = m_singleUnit.constFind(key.unit());
        return it == m_singleUnit.constEnd() ? nullptr : &it.value();
    }
    const auto it = m_multiUnit.constFind(key.text());
    return it == m_multiUnit.constEnd() ? nullptr : &it.value();
}
