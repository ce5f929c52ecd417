#pragma once

#include "core/Clock.h"
#include "platform/ModifierKeyState.h"

// Modifiers held until a given virtual time.
class FakeModifierKeyState : public ModifierKeyState {
public:
    explicit FakeModifierKeyState(Clock& clock) : m_clock(clock) {}

    Clock::Duration heldUntil{0};
    int queries = 0;

    bool isAnyModifierHeld() override
    {
        ++queries;
        return m_clock.elapsed() < heldUntil;
    }

private:
    Clock& m_clock;
};
