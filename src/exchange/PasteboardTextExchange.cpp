#include "exchange/PasteboardTextExchange.h"

#include "exchange/PasteboardService.h"
#include "exchange/QuietSelectionReader.h"

QCoro::Task<QString> PasteboardTextExchange::selectedTextForLayout()
{
    co_return co_await m_reader.selectedTextForLayout();
}

QCoro::Task<QString> PasteboardTextExchange::readSelectedTextTransient(bool selectAllBeforeCopy,
                                                                       bool includeFocusedTextFallback,
                                                                       PasteboardTiming timing)
{
    co_return co_await m_pasteboard.readSelectedTextTransient(selectAllBeforeCopy, includeFocusedTextFallback,
                                                              timing);
}

QCoro::Task<> PasteboardTextExchange::pasteTransient(QString text,
                                                     std::optional<QString> targetBundleIdentifier,
                                                     PasteboardTiming timing)
{
    co_await m_pasteboard.pasteTransient(std::move(text), std::move(targetBundleIdentifier), timing);
}

QCoro::Task<bool> PasteboardTextExchange::replaceSelectedTextViaAccessibility(QString text)
{
    co_return co_await m_pasteboard.replaceSelectedTextViaAccessibility(std::move(text));
}
