#pragma once

#include "platform/SystemBell.h"

// The system alert sound at the user's volume.
class MacSystemBell : public SystemBell {
public:
    void ring() override;
};
