#pragma once

#include "backend/ChatMessage.h"
#include "backend/WireRequest.h"

#include <QList>
#include <variant>

// Turns one request of the program into the messages of a chat completion: a system instruction made from
// the action, the style and the request's options, the earlier turns of an assistant conversation, and the
// user's text.
namespace PromptComposer {
// The wire actions the backend serves.
bool isKnownAction(const QString& action);
// The messages, or the text of a 400 answer for a request that cannot be served (unknown action, missing
// target language).
std::variant<QList<ChatMessage>, QString> compose(const WireRequest& request,
                                                  const QList<ChatMessage>& history);
} // namespace PromptComposer
