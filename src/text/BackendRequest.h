#pragma once

#include "core/BackendAction.h"
#include "core/PromptStyle.h"

#include <QByteArray>
#include <QString>
#include <optional>

// The JSON body of one request to the AI backend. The backend reads the keys in the order they are
// written, so the body is written by hand in that order rather than through QJsonObject, which sorts them.
struct BackendRequest {
    QString action;
    QString model = QStringLiteral("gpt-4.1-mini");
    QString preferredModel = QStringLiteral("gpt-4.1-mini");
    QString fallbackModel = QStringLiteral("gpt-4.1-mini");
    QString text;
    QString sourceText;
    QString targetLanguage;
    QString keyboardLanguage;
    QString writingStyle;
    QString styleId;
    QString gender;
    QString voiceGender;
    QString userInstruction;
    QString replyTo;
    QString assistantSessionId;
    bool assistantKeepContext = false;
    bool keepContext = false;
    QString mode;
    QString task;
    QString rewriteMode;
    QString replyMode = QStringLiteral("chat_reply");
    std::optional<bool> forceRewrite;
    std::optional<QString> styleIntensity;

    struct Arguments {
        QString text;
        BackendAction action = BackendAction::fix;
        PromptStyle style;
        QString targetLanguage;
        QString assistantSessionId;
        bool assistantKeepContext = false;
        QString userInstruction;
        QString replyTo;
        QString keyboardLanguage;
        std::optional<bool> forceRewrite;
        std::optional<QString> styleIntensity;
    };

    // Turns the program's action and style into the backend's wire words.
    static BackendRequest make(const Arguments& arguments);

    // Compact JSON, keys in declaration order; the two optionals are left out when absent.
    QByteArray toJson() const;
};
