#pragma once

#include <QHash>
#include <QString>
#include <QStringView>
#include <QTextBoundaryFinder>

// A map from one user-perceived character (extended grapheme cluster) to another. Keys are compared under
// canonical equivalence: "й" and "и" + U+0306 are the same key.
class CharacterMap {
public:
    // A character reduced to its composed (NFC) spelling. Most characters are one UTF-16 unit that no
    // normalisation can change; those are kept as that unit and never allocate.
    class Key {
    public:
        explicit Key(QStringView character);

        bool isSingleUnit() const { return m_singleUnit; }
        char16_t unit() const { return m_unit; }
        // The composed spelling of a multi-unit key.
        const QString& text() const { return m_text; }

    private:
        bool m_singleUnit = false;
        char16_t m_unit = 0;
        QString m_text;
    };

    // A later insert of an equivalent key replaces the earlier value.
    void insert(QStringView from, QStringView to);
    const QString* find(const Key& key) const;
    const QString* find(QStringView character) const { return find(Key(character)); }
    bool contains(QStringView character) const { return find(character) != nullptr; }
    qsizetype size() const { return m_singleUnit.size() + m_multiUnit.size(); }
    bool isEmpty() const { return size() == 0; }

private:
    QHash<char16_t, QString> m_singleUnit;
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

// Calls fn with each extended grapheme cluster of text, in order, as a view into text.
template <typename Fn> void forEachCharacter(QStringView text, Fn&& fn)
{
    if (text.isEmpty())
        return;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
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
