// A request body sent to "POST /macos/ai" as the backend reads it and, when accepted, turns it into the
// messages for the model server.
#include "backend/PromptComposer.h"
#include "backend/WireRequest.h"

#include <cstdint>
#include <cstdlib>
#include <variant>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto parsed = WireRequest::parse(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (const QString* problem = std::get_if<QString>(&parsed)) {
        // Every refusal says what is wrong.
        if (problem->isEmpty()) {
            std::abort();
        }
        return 0;
    }
    static const QList<ChatMessage> history{{QStringLiteral("user"), QStringLiteral("Earlier question")},
                                            {QStringLiteral("assistant"), QStringLiteral("Earlier answer")}};
    const auto composed = PromptComposer::compose(std::get<WireRequest>(parsed), history);
    if (const auto* messages = std::get_if<QList<ChatMessage>>(&composed)) {
        // The instruction first, then the conversation so far, then what the user sent.
        if (messages->size() != history.size() + 2 || messages->first().role != u"system" ||
            messages->last().role != u"user") {
            std::abort();
        }
    } else if (std::get<QString>(composed).isEmpty()) {
        std::abort();
    }
    return 0;
}
