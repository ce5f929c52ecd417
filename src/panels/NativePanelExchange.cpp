#include "panels/NativePanelExchange.h"

#include "exchange/FocusService.h"
#include "exchange/PasteboardService.h"
#include "exchange/QuietSelectionReader.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/Pasteboard.h"

void NativePanelExchange::rememberFrontmostApplication()
{
    if (const auto front = m_services.workspace.frontmostApplication()) {
        m_services.focus.remember(*front);
    }
}

std::optional<qint32> NativePanelExchange::rememberedProcessIdentifier() const
{
    return m_services.focus.rememberedProcessIdentifier();
}

QCoro::Task<QString> NativePanelExchange::quietSelectedText()
{
    co_return co_await m_services.reader.selectedText();
}

QCoro::Task<QString> NativePanelExchange::readSelectedTextTransient(bool selectAllBeforeCopy,
                                                                    bool includeFocusedTextFallback,
                                                                    PasteboardTiming timing)
{
    co_return co_await m_services.pasteboardService.readSelectedTextTransient(
        selectAllBeforeCopy, includeFocusedTextFallback, timing);
}

QCoro::Task<> NativePanelExchange::pasteTransient(QString text, PasteboardTiming timing)
{
    co_await m_services.pasteboardService.pasteTransient(text, std::nullopt, timing);
}

QCoro::Task<> NativePanelExchange::pasteAIReply(QString text, qint32 targetProcessIdentifier)
{
    co_await m_services.pasteboardService.pasteAIReply(text, targetProcessIdentifier);
}

void NativePanelExchange::copy(const QString& text)
{
    m_services.pasteboard.clear();
    m_services.pasteboard.writeString(text);
}

QCoro::Task<std::optional<QString>> NativePanelExchange::clipboardText()
{
    co_return co_await m_services.pasteboard.string();
}
