#pragma once

#include "core/AIReplyStyle.h"
#include "core/BackendAction.h"
#include "core/PromptStyle.h"

#include <QString>
#include <qcoro/qcorotask.h>

// One request of a panel to the AI backend. The panels never send a user instruction, a reply target, a
// keyboard language, a forced rewrite or a style intensity.
struct PanelBackendRequest {
    QString text;
    BackendAction action = BackendAction::assistant;
    PromptStyle style;
    QString targetLanguage;
    bool retryOnUnchangedTranslation = false;
    QString assistantSessionId;
    bool assistantKeepContext = false;

    bool operator==(const PanelBackendRequest&) const = default;
};

// The AI backend as the assistant and translation panels use it. GUI thread; each call suspends while the
// backend works and throws MivoraError with the text the user sees.
class PanelBackend {
public:
    virtual ~PanelBackend() = default;

    // The cleaned answer to one request.
    virtual QCoro::Task<QString> send(PanelBackendRequest request) = 0;
    // A reply to a chat message in the style.
    virtual QCoro::Task<QString> sendReply(QString message, AIReplyStyle style, QString targetLanguage) = 0;
};
