#pragma once

#include <QString>
#include <qcoro/qcorotask.h>

class AccessibilityTextReader;
class FocusService;
class PrimarySelection;

// The selection of the remembered application, read without disturbing anything: through accessibility
// first, then, when that gives nothing, from the selection the windowing system keeps (X11's PRIMARY) if
// the remembered application owns it. No keys are sent and the clipboard is untouched, so terminals and
// applications without an accessibility tree are read safely. GUI thread.
class QuietSelectionReader {
public:
    // All three must outlive the reader.
    QuietSelectionReader(AccessibilityTextReader& accessibility, FocusService& focus,
                         PrimarySelection& primary);

    // The focused selection; empty when neither route has one. Awaitable.
    QCoro::Task<QString> selectedText();
    // The same for the layout fix: accessibility leaves browser content to the other routes.
    QCoro::Task<QString> selectedTextForLayout();

private:
    QCoro::Task<QString> orPrimarySelection(QString accessible);

    AccessibilityTextReader& m_accessibility;
    FocusService& m_focus;
    PrimarySelection& m_primary;
};
