#pragma once

#include "core/TextExchange.h"

class PasteboardService;
class QuietSelectionReader;

// The action runner's view of the exchange with other applications: the quiet reader and the clipboard
// routes behind one seam.
class PasteboardTextExchange : public TextExchange {
public:
    PasteboardTextExchange(PasteboardService& pasteboard, QuietSelectionReader& reader)
        : m_pasteboard(pasteboard), m_reader(reader)
    {}

    QCoro::Task<QString> selectedTextForLayout() override;
    QCoro::Task<QString> readSelectedTextTransient(bool selectAllBeforeCopy, bool includeFocusedTextFallback,
                                                   PasteboardTiming timing) override;
    QCoro::Task<> pasteTransient(QString text, std::optional<QString> targetBundleIdentifier,
                                 PasteboardTiming timing) override;
    QCoro::Task<bool> replaceSelectedTextViaAccessibility(QString text) override;

private:
    PasteboardService& m_pasteboard;
    QuietSelectionReader& m_reader;
};
