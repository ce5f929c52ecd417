#pragma once

#include "platform/SystemBell.h"

typedef struct _XDisplay Display;

// The X server's bell, rung on a connection that outlives this object; silent without a server.
class X11SystemBell : public SystemBell {
public:
    explicit X11SystemBell(Display* display) : m_display(display) {}

    void ring() override;

private:
    Display* m_display;
};
