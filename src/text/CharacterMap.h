#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>
#include <QTextBoundaryFinder>
#include <array>
#include <cstdint>
#include <memory>
#include <utility>

// A map from one user-perceived character (extended grapheme cluster) to another. Keys are compared under
// canonical equivalence: "й" and "и" + U+0306 are the same key.
class CharacterMap {
public:
    // A character reduced to its composed (NFC) spelling; it views the character, which must outlive it.
    // Characters that no normalisation can change (almost every single unit, emoji sequences) are
    // recognised without normalising and never allocate.
    class Key {
    public:
        explicit Key(QStringView character);

        bool isSingleUnit() const { return m_singleUnit; }
        char16_t unit() const { return m_unit; }
        // The composed spelling of a multi-unit key.
        QString text() const { return m_composed.isNull() ? m_character.toString() : m_composed; }

    private:
        QStringView m_character;
        bool m_singleUnit = false;
        char16_t m_unit = 0;
        // Null when the character is already composed.
        QString m_composed;
    };

    // A later insert of an equivalent key replaces the earlier value.
    void insert(QStringView from, QStringView to);
    const QString* find(const Key& key) const;
    const QString* find(QStringView character) const { return find(Key(character)); }
    bool contains(QStringView character) const { return find(character) != nullptr; }
    qsizetype size() const { return m_singleUnitValues.size() + m_multiUnit.size(); }
    bool isEmpty() const { return size() == 0; }

private:
    // Single-unit keys sit in 256-unit pages indexed by the high byte, holding 1 + the index of the value in
    // m_singleUnitValues (0 for no key): a lookup is two loads, and a Latin/Cyrillic map needs two pages.
    using Page = std::array<std::uint16_t, 256>;

    std::array<std::unique_ptr<Page>, 256> m_pages;
    QList<QString> m_singleUnitValues;
    QHash<QString, QString> m_multiUnit;
};

namespace CharacterWalk {
// A regional indicator (flag half), which stands alone as two UTF-16 units.
inline bool isRegionalIndicator(QStringView text, qsizetype at)
{
    if (at + 2 > text.size() || !text[at].isHighSurrogate() || !text[at + 1].isLowSurrogate())
        return false;
    const char32_t c = QChar::surrogateToUcs4(text[at], text[at + 1]);
    return c >= 0x1F1E6 && c <= 0x1F1FF;
}
} // namespace CharacterWalk

// Calls fn with each extended grapheme cluster of text, in order, as a view into text. finder must be a
// grapheme finder over text; passing it in lets several walks share one segmentation.
template <typename Fn> void forEachCharacter(QStringView text, QTextBoundaryFinder& finder, Fn&& fn)
{
    if (text.isEmpty())
        return;
    finder.toStart();
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
        // QtCore breaks between the two regional indicators of a flag; a flag is one character.
        if (end - start == 2 && CharacterWalk::isRegionalIndicator(text, start) &&
            CharacterWalk::isRegionalIndicator(text, end))
            continue;
        fn(text.sliced(start, end - start));
        start = end;
    }
}

template <typename Fn> void forEachCharacter(QStringView text, Fn&& fn)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    forEachCharacter(text, finder, std::forward<Fn>(fn));
}
