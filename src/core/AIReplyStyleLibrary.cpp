#include "core/AIReplyStyleLibrary.h"

#include "core/StyleReconciliation.h"

#include <QHash>

namespace {

AIReplyStyle builtIn(const char* id, const char* name, const char* hotkey, const char* prompt)
{
    return AIReplyStyle{QString::fromUtf8(id), QString::fromUtf8(name), QString::fromUtf8(prompt),
                        QString::fromUtf8(hotkey)};
}

AIReplyStyle mergeBuiltIn(const AIReplyStyle& builtIn, const AIReplyStyle& saved)
{
    using StyleReconciliation::nonEmptyOr;
    return AIReplyStyle{builtIn.id, nonEmptyOr(saved.name, builtIn.name),
                        nonEmptyOr(saved.prompt, builtIn.prompt), nonEmptyOr(saved.hotkey, builtIn.hotkey)};
}

} // namespace

const QList<AIReplyStyle>& AIReplyStyleLibrary::builtInStyles()
{
    static const QList<AIReplyStyle> styles{
        builtIn("original", "Обычный", "Command+Alt+1",
                "Reply naturally and directly. Keep it concise, human, and ready to send."),
        builtIn("friendly", "Дружелюбно", "Command+Alt+2",
                "Write a warm, friendly reply. Sound natural and positive without overdoing it."),
        builtIn("emoji", "Смайлики", "Command+Alt+E", "Write a natural reply and add 1-3 relevant emojis."),
        builtIn("polite", "Вежливо", "Command+Alt+3", "Write a polite, respectful, and tactful reply."),
        builtIn("professional", "Профессионально", "Command+Alt+4",
                "Write a polished, confident, concise, and professional reply. No emojis."),
        builtIn("short", "Кратко", "Not assigned",
                "Write the shortest useful natural reply. Remove filler and repetition."),
        builtIn("detailed", "Подробно", "Not assigned",
                "Write a complete and helpful reply with enough detail to answer the message clearly."),
        builtIn("humor", "С юмором", "Not assigned",
                "Write a light, witty reply with natural humor that fits the message."),
        builtIn("flirt", "Флирт", "Not assigned",
                "Write a playful, tasteful, confident flirtatious reply without being pushy."),
        builtIn("romantic", "Романтично", "Not assigned",
                "Write a warm, sincere, romantic reply that feels personal."),
        builtIn("sexy", "Sexy", "Not assigned",
                "Write a confident, suggestive reply while staying tasteful and consensual."),
        builtIn("formal", "Формально", "Not assigned",
                "Write a formal, precise, and respectful reply. No slang or emojis."),
        builtIn("casual", "Обычно", "Command+Alt+5", "Write a relaxed, natural everyday chat reply."),
        builtIn("support", "Поддержка", "Not assigned",
                "Write an empathetic, supportive reply that acknowledges the other person's feelings."),
        builtIn("expert", "Эксперт", "Not assigned",
                "Write a confident expert reply with a clear and useful answer."),
        builtIn("social", "Соцсети", "Command+Alt+6",
                "Write an engaging social-media-style reply that is concise and natural."),
        builtIn("translate", "Перевод", "Command+Alt+T",
                "Reply in the selected target language. Keep the answer natural and ready to send."),
    };
    return styles;
}

const QSet<QString>& AIReplyStyleLibrary::builtInStyleIds()
{
    static const QSet<QString> ids = StyleReconciliation::idsOf(builtInStyles());
    return ids;
}

QList<AIReplyStyle> AIReplyStyleLibrary::restoredStyles(const QList<AIReplyStyle>& saved)
{
    if (saved.isEmpty()) {
        return builtInStyles();
    }
    return StyleReconciliation::reconcile(saved, builtInStyles(), builtInStyleIds(), mergeBuiltIn);
}

QString AIReplyStyleLibrary::backendStyleName(const AIReplyStyle& style)
{
    // The backend's fixed vocabulary; ids outside it, custom styles included, get no word.
    static const QHash<QString, QString> words{
        {QStringLiteral("original"), QStringLiteral("Friendly")},
        {QStringLiteral("friendly"), QStringLiteral("Friendly")},
        {QStringLiteral("translate"), QStringLiteral("Friendly")},
        {QStringLiteral("emoji"), QStringLiteral("Emoji")},
        {QStringLiteral("polite"), QStringLiteral("Polite")},
        {QStringLiteral("professional"), QStringLiteral("Professional")},
        {QStringLiteral("short"), QStringLiteral("Short")},
        {QStringLiteral("detailed"), QStringLiteral("Detailed")},
        {QStringLiteral("humor"), QStringLiteral("Humor")},
        {QStringLiteral("flirt"), QStringLiteral("Flirt")},
        {QStringLiteral("romantic"), QStringLiteral("Romantic")},
        {QStringLiteral("sexy"), QStringLiteral("Sexy")},
        {QStringLiteral("formal"), QStringLiteral("Formal")},
        {QStringLiteral("casual"), QStringLiteral("Casual")},
        {QStringLiteral("support"), QStringLiteral("Support")},
        {QStringLiteral("expert"), QStringLiteral("Expert")},
        {QStringLiteral("social"), QStringLiteral("Social")},
    };
    return words.value(style.id);
}
