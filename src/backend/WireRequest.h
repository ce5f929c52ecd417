#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <variant>

// One request of the program's AI client, as it arrived. Only the keys the backend acts on are kept; the
// rest of the body is checked for its types and then ignored.
struct WireRequest {
    QString action;
    QString text;
    QString targetLanguage;
    QString keyboardLanguage;
    QString writingStyle;
    QString userInstruction;
    QString replyTo;
    QString assistantSessionId;
    bool keepContext = false;
    bool forceRewrite = false;
    QString styleIntensity;

    // The decoded body, or the text of a 400 answer: not a JSON object, a missing key, a key of the wrong
    // type. Unknown keys are ignored.
    static std::variant<WireRequest, QString> parse(const QByteArray& body);
};
