#pragma once

#include "platform/PrimarySelection.h"

// macOS keeps no selection apart from the pasteboard: every read answers nothing at once.
class MacPrimarySelection : public PrimarySelection {
public:
    QCoro::Task<std::optional<QString>> selectedText(qint32 ownerProcessIdentifier) override;
};
