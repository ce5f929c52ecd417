#pragma once

#include "panels/PanelExchange.h"

class ApplicationWorkspace;
class FocusService;
class Pasteboard;
class PasteboardService;
class QuietSelectionReader;

// The panels' exchange over the program's focus tracking, selection readers and clipboard routes.
class NativePanelExchange : public PanelExchange {
public:
    struct Services {
        ApplicationWorkspace& workspace;
        FocusService& focus;
        QuietSelectionReader& reader;
        PasteboardService& pasteboardService;
        Pasteboard& pasteboard;
    };

    // All services must outlive the exchange.
    explicit NativePanelExchange(Services services) : m_services(services) {}

    void rememberFrontmostApplication() override;
    std::optional<qint32> rememberedProcessIdentifier() const override;
    QCoro::Task<QString> quietSelectedText() override;
    QCoro::Task<QString> readSelectedTextTransient(bool selectAllBeforeCopy, bool includeFocusedTextFallback,
                                                   PasteboardTiming timing) override;
    QCoro::Task<> pasteTransient(QString text, PasteboardTiming timing) override;
    QCoro::Task<> pasteAIReply(QString text, qint32 targetProcessIdentifier) override;
    void copy(const QString& text) override;
    QCoro::Task<std::optional<QString>> clipboardText() override;

private:
    Services m_services;
};
