#pragma once

#include "core/TextExchange.h"

class AccessibilityTextReader;
class PasteboardService;

// The action runner's view of the exchange with other applications: the accessibility reader and the
// clipboard routes behind one seam.
class PasteboardTextExchange : public TextExchange {
public:
    PasteboardTextExchange(PasteboardService& pasteboard, AccessibilityTextReader& reader)
        : m_pasteboard(pasteboard), m_reader(reader)
    {}

    QString selectedTextForLayout() override;
    QCoro::Task<QString> readSelectedTextTransient(bool selectAllBeforeCopy, bool includeFocusedTextFallback,
                                                   PasteboardTiming timing) override;
    QCoro::Task<> pasteTransient(QString text, std::optional<QString> targetBundleIdentifier,
                                 PasteboardTiming timing) override;
    QCoro::Task<bool> replaceSelectedTextViaAccessibility(QString text) override;

private:
    PasteboardService& m_pasteboard;
    AccessibilityTextReader& m_reader;
};
