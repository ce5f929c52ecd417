#pragma once

#include "platform/ApplicationPresence.h"

// The application's activation policy: regular with a Dock icon and the main menu, or an accessory that
// lives in the menu bar.
class MacApplicationPresence : public ApplicationPresence {
public:
    void setRegular(bool regular) override;
};
