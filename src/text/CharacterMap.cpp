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

// Code points that never decompose, never reorder and never compose with what precedes them: the glue and
// modifiers of emoji sequences and the emoji blocks themselves.
bool isInertExtension(char32_t c)
{
    return c == 0x200D || c == 0xFE0E || c == 0xFE0F || c == 0x20E3 || (c >= 0x1F000 && c <= 0x1FAFF) ||
           (c >= 0xE0020 && c <= 0xE007F);
}

// A multi-unit character that NFC leaves as it is: a stable first code point followed only by inert ones.
bool isAlreadyComposed(QStringView character)
{
    for (qsizetype i = 0; i < character.size(); ++i) {
        const QChar unit = character[i];
        char32_t c = unit.unicode();
        if (unit.isHighSurrogate() && i + 1 < character.size() && character[i + 1].isLowSurrogate())
            c = QChar::surrogateToUcs4(unit, character[++i]);
        const bool stable = i == 0 && c < 0x10000 ? stableUnits().test(c) : isInertExtension(c);
        if (!stable)
            return false;
    }
    return true;
}

} // namespace

CharacterMap::Key::Key(QStringView character) : m_character(character)
{
    if (character.size() == 1 && stableUnits().test(character.front().unicode())) {
        m_singleUnit = true;
        m_unit = character.front().unicode();
        return;
    }
    if (character.size() > 1 && isAlreadyComposed(character))
        return;
    QString composed = character.toString().normalized(QString::NormalizationForm_C);
    if (composed.size() == 1) {
        m_singleUnit = true;
        m_unit = composed.front().unicode();
        return;
    }
    m_composed = std::move(composed);
}

void CharacterMap::insert(QStringView from, QStringView to)
{
    const Key key(from);
    if (!key.isSingleUnit()) {
        m_multiUnit.insert(key.text(), to.toString());
        return;
    }
    std::unique_ptr<Page>& page = m_pages[key.unit() >> 8];
    if (!page)
        page = std::make_unique<Page>(Page{});
    std::uint16_t& slot = (*page)[key.unit() & 0xFF];
    if (slot != 0) {
        m_singleUnitValues[slot - 1] = to.toString();
        return;
    }
    m_singleUnitValues.append(to.toString());
    slot = std::uint16_t(m_singleUnitValues.size());
}

const QString* CharacterMap::find(const Key& key) const
{
    if (key.isSingleUnit()) {
        const Page* page = m_pages[key.unit() >> 8].get();
        const std::uint16_t slot = page ? (*page)[key.unit() & 0xFF] : 0;
        return slot == 0 ? nullptr : &m_singleUnitValues[slot - 1];
    }
    if (m_multiUnit.isEmpty())
        return nullptr;
    const auto it = m_multiUnit.constFind(key.text());
    return it == m_multiUnit.constEnd() ? nullptr : &it.value();
}
