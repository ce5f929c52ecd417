#pragma once

#include "platform/SystemBell.h"

// Counts the rings.
class FakeSystemBell : public SystemBell {
public:
    int rings = 0;
    void ring() override { ++rings; }
};
