#include "exchange/QuietSelectionReader.h"

#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "platform/PrimarySelection.h"

QuietSelectionReader::QuietSelectionReader(AccessibilityTextReader& accessibility, FocusService& focus,
                                           PrimarySelection& primary)
    : m_accessibility(accessibility), m_focus(focus), m_primary(primary)
{}

QCoro::Task<QString> QuietSelectionReader::selectedText()
{
    co_return co_await orPrimarySelection(m_accessibility.selectedText());
}

QCoro::Task<QString> QuietSelectionReader::selectedTextForLayout()
{
    co_return co_await orPrimarySelection(m_accessibility.selectedTextForLayout());
}

QCoro::Task<QString> QuietSelectionReader::orPrimarySelection(QString accessible)
{
    const std::optional<qint32> process = m_focus.rememberedProcessIdentifier();
    if (!accessible.trimmed().isEmpty() || !process) {
        co_return accessible;
    }
    // Only the remembered application's own selection counts: what another program holds is not what the
    // user selected where they work.
    co_return (co_await m_primary.selectedText(*process)).value_or(QString());
}
