#pragma once

#include "core/MivoraError.h"

// Why reading the selection or pasting a result failed, with the text the user sees.
class PasteboardServiceError : public MivoraError {
public:
    enum class Kind {
        emptyText,
        emptySelection,
        missingAccessibilityPermission,
        pasteTargetUnavailable,
        pasteEditorUnavailable,
        pasteNotApplied,
        pasteEventFailed,
        copyEventFailed,
    };

    explicit PasteboardServiceError(Kind kind);

    Kind kind() const { return m_kind; }

    static QString description(Kind kind);

private:
    Kind m_kind;
};
