#include "backend/PromptComposer.h"

#include "core/AIReplyStyleLibrary.h"
#include "core/MivoraPromptLibrary.h"

namespace {

const QString answerOnly =
    QStringLiteral("Answer with the resulting text only: no quotes around it, no preamble, no explanation.");

// The client sends a built-in style as its capitalised id ("Friendly"); anything else is a custom style's
// own name, which is the best description of it the backend gets.
QString rewriteStylePrompt(const QString& word)
{
    const QString id = word.trimmed().toLower();
    for (const PromptStyle& style : MivoraPromptLibrary::builtInStyles()) {
        if (style.id == id) {
            return style.prompt;
        }
    }
    return QStringLiteral("Rewrite the text in this style: %1.").arg(word.trimmed());
}

QString replyStylePrompt(const QString& word)
{
    const QString id = word.trimmed().toLower();
    for (const AIReplyStyle& style : AIReplyStyleLibrary::builtInStyles()) {
        if (style.id == id) {
            return style.prompt;
        }
    }
    return word.trimmed().isEmpty()
               ? QString()
               : QStringLiteral("Write the reply in this style: %1.").arg(word.trimmed());
}

QString builtInPrompt(const QString& id)
{
    const std::optional<PromptStyle> style = MivoraPromptLibrary::style(id, {});
    return style ? style->prompt : QString();
}

bool insists(const WireRequest& request)
{
    return request.forceRewrite || request.styleIntensity == QLatin1StringView("maximum");
}

QStringList instructionFor(const WireRequest& request)
{
    const QString& action = request.action;
    if (action == QLatin1StringView("fix")) {
        return {QStringLiteral("Correct the spelling, grammar and punctuation of the user's text. Keep its "
                               "language, meaning, tone and line breaks; change nothing else.")};
    }
    if (action == QLatin1StringView("improve")) {
        return {builtInPrompt(QStringLiteral("original")), QStringLiteral("Keep the language of the text.")};
    }
    if (action == QLatin1StringView("style_rewrite")) {
        return {rewriteStylePrompt(request.writingStyle), QStringLiteral("Keep the language of the text.")};
    }
    if (action == QLatin1StringView("emoji")) {
        return {builtInPrompt(QStringLiteral("emoji")), QStringLiteral("Keep the language of the text.")};
    }
    if (action == QLatin1StringView("translate")) {
        return {QStringLiteral("Translate the user's text into %1. Keep its meaning, tone and line breaks.")
                    .arg(request.targetLanguage)};
    }
    if (action == QLatin1StringView("assistant")) {
        return {QStringLiteral("You are a helpful assistant. Answer the user's question or request clearly "
                               "and concisely, in the language the user writes in.")};
    }
    QStringList reply{QStringLiteral("The user's text is a chat message someone sent them. Write one reply "
                                     "to it that the user can send as it is. Never repeat the message.")};
    const QString style = replyStylePrompt(request.writingStyle);
    if (!style.isEmpty()) {
        reply.append(style);
    }
    const QString language =
        request.targetLanguage.isEmpty() ? request.keyboardLanguage : request.targetLanguage;
    if (!language.isEmpty()) {
        reply.append(QStringLiteral("Write the reply in this language: %1.").arg(language));
    }
    return reply;
}

} // namespace

bool PromptComposer::isKnownAction(const QString& action)
{
    static const QStringList actions{"fix",       "improve",   "style_rewrite", "emoji",
                                     "translate", "assistant", "chat_reply"};
    return actions.contains(action);
}

std::variant<QList<ChatMessage>, QString> PromptComposer::compose(const WireRequest& request,
                                                                  const QList<ChatMessage>& history)
{
    if (!isKnownAction(request.action)) {
        return QStringLiteral("Unknown action \"%1\".").arg(request.action);
    }
    if (request.action == QLatin1StringView("translate") && request.targetLanguage.trimmed().isEmpty()) {
        return QStringLiteral("A translation needs \"targetLanguage\".");
    }
    QStringList system = instructionFor(request);
    if (!request.userInstruction.trimmed().isEmpty()) {
        system.append(QStringLiteral("Follow this instruction of the user: ") +
                      request.userInstruction.trimmed());
    }
    if (insists(request)) {
        system.append(
            request.action == QLatin1StringView("chat_reply")
                ? QStringLiteral("The previous attempt only repeated the message. Write a real "
                                 "reply in new words; do not quote the message.")
                : QStringLiteral("The previous attempt returned the text unchanged. Apply the style "
                                 "fully and change the wording noticeably."));
    }
    if (request.action != QLatin1StringView("assistant")) {
        system.append(answerOnly);
    }
    QList<ChatMessage> messages{{QStringLiteral("system"), system.join(QLatin1Char('\n'))}};
    messages.append(history);
    const bool isReply = request.action == QLatin1StringView("chat_reply") && !request.replyTo.isEmpty();
    messages.append({QStringLiteral("user"), isReply ? request.replyTo : request.text});
    return messages;
}
