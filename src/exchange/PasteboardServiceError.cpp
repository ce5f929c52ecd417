#include "exchange/PasteboardServiceError.h"

PasteboardServiceError::PasteboardServiceError(Kind kind) : MivoraError(description(kind)), m_kind(kind) {}

QString PasteboardServiceError::description(Kind kind)
{
    switch (kind) {
    case Kind::emptyText:
        return QStringLiteral("Nothing to paste.");
    case Kind::emptySelection:
        return QStringLiteral("No selected text.");
    case Kind::missingAccessibilityPermission:
        return QStringLiteral("Accessibility permission is required for paste.");
    case Kind::pasteTargetUnavailable:
        return QStringLiteral("No app to paste into.");
    case Kind::pasteEditorUnavailable:
        return QStringLiteral("No editable field found in the target app.");
    case Kind::pasteNotApplied:
        return QStringLiteral("The paste shortcut was sent, but the field did not change.");
    case Kind::pasteEventFailed:
        return QStringLiteral("Could not send paste shortcut.");
    case Kind::copyEventFailed:
        return QStringLiteral("Could not send copy shortcut.");
    }
    return {};
}
