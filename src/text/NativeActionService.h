#pragma once

#include "core/TextActionService.h"
#include "text/BackendClient.h"

#include <memory>

// The backend route of the action runner: style actions go to the AI backend; the assistant, clipboard
// and layout actions have homes of their own and are refused here.
class NativeActionService : public TextActionService {
public:
    explicit NativeActionService(std::unique_ptr<BackendClient> backend);

    QCoro::Task<QString> run(QuickAction action, QString input, QString targetLanguage,
                             QList<PromptStyle> styles) override;

    BackendClient& backend() { return *m_backend; }

private:
    std::unique_ptr<BackendClient> m_backend;
};
