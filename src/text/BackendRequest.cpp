#include "text/BackendRequest.h"

#include "text/BackendTextRules.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

struct WireWords {
    const char* action;
    const char* task;
    const char* mode;
    // Whether the style word goes out whatever the style; otherwise only the emoji style sends it.
    bool alwaysSendsStyle;
};

WireWords wireWords(BackendAction action, const PromptStyle& style)
{
    switch (action) {
    case BackendAction::fix:
        return {"fix", "fix", "fix", false};
    case BackendAction::improve:
        if (style.id == QLatin1StringView("original")) {
            return {"improve", "improve", "improve", false};
        }
        return {"style_rewrite", "style_rewrite", "style_rewrite", true};
    case BackendAction::emoji:
        return {"emoji", "emoji", "emoji", true};
    case BackendAction::translate:
        return {"translate", "translate", "translate", false};
    case BackendAction::assistant:
        return {"assistant", "assistant", "assistant", false};
    case BackendAction::chatReply:
        return {"chat_reply", "write_chat_reply", "chat_reply", true};
    }
    return {"fix", "fix", "fix", false};
}

// One value as JSON text, escaped by Qt's writer.
QByteArray encoded(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

class OrderedObjectWriter {
public:
    void add(const char* key, const QJsonValue& value)
    {
        m_json += m_json.isEmpty() ? '{' : ',';
        m_json += encoded(QString::fromLatin1(key));
        m_json += ':';
        m_json += encoded(value);
    }
    QByteArray finish() { return m_json.isEmpty() ? QByteArray("{}") : m_json + '}'; }

private:
    QByteArray m_json;
};

} // namespace

BackendRequest BackendRequest::make(const Arguments& arguments)
{
    const WireWords words = wireWords(arguments.action, arguments.style);
    // The emoji style keeps its word even in actions that otherwise send none.
    const bool sendsStyle = words.alwaysSendsStyle || arguments.style.id == QLatin1StringView("emoji");
    const QString styleWord = sendsStyle ? serverWritingStyle(arguments.style) : QString();
    const QString text = arguments.text.trimmed();

    BackendRequest request;
    request.action = QString::fromLatin1(words.action);
    request.text = text;
    request.sourceText = text;
    request.targetLanguage = arguments.targetLanguage;
    request.keyboardLanguage = arguments.keyboardLanguage;
    request.writingStyle = styleWord;
    request.styleId = styleWord;
    request.userInstruction = arguments.userInstruction;
    request.replyTo = arguments.action == BackendAction::chatReply ? arguments.replyTo : QString();
    request.assistantSessionId = arguments.assistantSessionId;
    request.assistantKeepContext = arguments.assistantKeepContext;
    request.keepContext = arguments.assistantKeepContext;
    request.mode = QString::fromLatin1(words.mode);
    request.task = QString::fromLatin1(words.task);
    request.rewriteMode = request.mode;
    request.forceRewrite = arguments.forceRewrite;
    request.styleIntensity = arguments.styleIntensity;
    return request;
}

QByteArray BackendRequest::toJson() const
{
    OrderedObjectWriter writer;
    writer.add("action", action);
    writer.add("model", model);
    writer.add("preferredModel", preferredModel);
    writer.add("fallbackModel", fallbackModel);
    writer.add("text", text);
    writer.add("sourceText", sourceText);
    writer.add("targetLanguage", targetLanguage);
    writer.add("keyboardLanguage", keyboardLanguage);
    writer.add("writingStyle", writingStyle);
    writer.add("styleId", styleId);
    writer.add("gender", gender);
    writer.add("voiceGender", voiceGender);
    writer.add("userInstruction", userInstruction);
    writer.add("replyTo", replyTo);
    writer.add("assistantSessionId", assistantSessionId);
    writer.add("assistantKeepContext", assistantKeepContext);
    writer.add("keepContext", keepContext);
    writer.add("mode", mode);
    writer.add("task", task);
    writer.add("rewriteMode", rewriteMode);
    writer.add("replyMode", replyMode);
    if (forceRewrite) {
        writer.add("forceRewrite", *forceRewrite);
    }
    if (styleIntensity) {
        writer.add("styleIntensity", *styleIntensity);
    }
    return writer.finish();
}
