#include "text/BackendTextRules.h"

#include "core/AIReplyStyleLibrary.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace {

// UTF-16 offset just past the first `count` user-perceived characters, or nullopt when the text holds
// `count` or fewer. Walks no further than it must, so cutting a long text stays linear.
std::optional<qsizetype> offsetAfterIfLonger(const QString& text, int count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype offsetAtCount = 0;
    for (int seen = 0; seen <= count; ++seen) {
        const qsizetype next = finder.toNextBoundary();
        if (next < 0) {
            return std::nullopt;
        }
        if (seen == count - 1) {
            offsetAtCount = next;
        }
    }
    return count == 0 ? 0 : offsetAtCount;
}

qsizetype characterCount(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0) {
        ++count;
    }
    return count;
}

QString firstCharacters(const QString& text, int count)
{
    return text.left(offsetAfterIfLonger(text, count).value_or(text.size()));
}

qsizetype splitPoint(const QString& window)
{
    for (const QLatin1StringView separator :
         {QLatin1StringView("\n\n"), QLatin1StringView("\n"), QLatin1StringView(". ")}) {
        const qsizetype found = window.lastIndexOf(separator);
        if (found > 0) {
            return found;
        }
        if (found == 0) {
            // Only a remainder that starts with ". " gets here (remainders are trimmed); cutting at 0 would
            // make no progress, so it is cut hard at the end of the window instead.
            return window.size();
        }
    }
    return window.size();
}

QSet<QString> wordSet(const QString& plain)
{
    const QStringList words = plain.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return QSet<QString>(words.begin(), words.end());
}

} // namespace

QStringList splitTextForBackend(const QString& text, int maxChars)
{
    if (!offsetAfterIfLonger(text, maxChars)) {
        return {text};
    }
    QStringList chunks;
    QString remainder = text;
    while (const std::optional<qsizetype> windowEnd = offsetAfterIfLonger(remainder, maxChars)) {
        const qsizetype split = splitPoint(remainder.left(*windowEnd));
        const QString chunk = remainder.left(split).trimmed();
        if (!chunk.isEmpty()) {
            chunks.append(chunk);
        }
        remainder = remainder.mid(split).trimmed();
    }
    if (!remainder.isEmpty()) {
        chunks.append(remainder);
    }
    return chunks;
}

QString normalizeTranslationCompare(const QString& text)
{
    static const QRegularExpression whitespace(QStringLiteral("\\s+"),
                                               QRegularExpression::UseUnicodePropertiesOption);
    // The closing guillemet is deliberately not in this class.
    static const QRegularExpression quotes(QStringLiteral("[“”«\"]"));
    QString normalized = text;
    normalized.replace(whitespace, QStringLiteral(" "));
    normalized.remove(quotes);
    return normalized.trimmed().toLower();
}

QString serverWritingStyle(const PromptStyle& style)
{
    // Rewrite styles share the reply styles' vocabulary, except that fixing and translating have no word of
    // their own: those, and custom styles, are told to the backend by name.
    if (style.id != u"original" && style.id != u"translate") {
        QString word = AIReplyStyleLibrary::backendStyleName(AIReplyStyle{style.id, {}, {}, {}});
        if (!word.isEmpty()) {
            return word;
        }
    }
    return style.name.trimmed();
}

QString replyUserInstruction(const AIReplyStyle& style)
{
    QString prompt = style.prompt.trimmed();
    const QList<AIReplyStyle>& builtIns = AIReplyStyleLibrary::builtInStyles();
    const auto builtIn = std::find_if(builtIns.begin(), builtIns.end(), [&](const AIReplyStyle& candidate) {
        return candidate.id == style.id;
    });
    if (builtIn != builtIns.end() && builtIn->prompt == prompt) {
        return {};
    }
    return prompt;
}

QString plainForReplyCompare(const QString& text)
{
    QStringList words;
    QString word;
    for (const char32_t codePoint : text.toLower().toUcs4()) {
        const QChar::Category category = QChar::category(codePoint);
        // Combining marks stay with their letter, as they belong to the same character.
        const bool partOfWord = QChar::isLetterOrNumber(codePoint) || category == QChar::Mark_NonSpacing ||
                                category == QChar::Mark_SpacingCombining || category == QChar::Mark_Enclosing;
        if (partOfWord) {
            word += QString::fromUcs4(&codePoint, 1);
        } else if (!word.isEmpty()) {
            words.append(word);
            word.clear();
        }
    }
    if (!word.isEmpty()) {
        words.append(word);
    }
    return words.join(QLatin1Char(' '));
}

bool looksLikeBadReply(const QString& reply, const QString& source)
{
    const QString r = plainForReplyCompare(reply);
    const QString s = plainForReplyCompare(source);
    if (r.isEmpty()) {
        return true;
    }
    static const QStringList instructionEchoes{
        QStringLiteral("copied chat message"),     QStringLiteral("reply instruction"),
        QStringLiteral("write one ready to send"), QStringLiteral("скопированное сообщение"),
        QStringLiteral("сообщение из чата"),
    };
    for (const QString& echo : instructionEchoes) {
        if (r.contains(echo)) {
            return true;
        }
    }
    // A message with an empty plain form (only emoji or punctuation) has
    // nothing to be echoed, so the three rules that compare with it are left out; every reply contains the
    // empty text, and these rules would otherwise reject them all.
    const qsizetype sourceLength = characterCount(s);
    if (!s.isEmpty()) {
        if (r == s || r.contains(s)) {
            return true;
        }
        if (sourceLength >= 25 && r.contains(firstCharacters(s, 80))) {
            return true;
        }
    }
    const QSet<QString> replyWords = wordSet(r);
    const QSet<QString> sourceWords = wordSet(s);
    if (sourceLength < 18 || characterCount(r) < 18 || replyWords.isEmpty() || sourceWords.isEmpty()) {
        return false;
    }
    const qsizetype shared = QSet<QString>(replyWords).intersect(sourceWords).size();
    const qsizetype larger = std::max(replyWords.size(), sourceWords.size());
    return static_cast<double>(shared) / static_cast<double>(larger) > 0.82;
}
