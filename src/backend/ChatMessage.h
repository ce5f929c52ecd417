#pragma once

#include <QString>

// One message of an OpenAI-style chat: role "system", "user" or "assistant".
struct ChatMessage {
    QString role;
    QString content;

    bool operator==(const ChatMessage&) const = default;
};
