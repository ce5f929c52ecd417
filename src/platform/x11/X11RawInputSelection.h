#pragma once

#include <initializer_list>
#include <map>

// Xlib's own declaration, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;

// The XInput 2 raw events one connection asks for on the root window. The server keeps a single mask per
// client and window, so every user of the connection adds and removes its own event types here and the
// union is what is selected: one user letting go must not silence another. GUI thread.
class X11RawInputSelection {
public:
    explicit X11RawInputSelection(Display* display);

    // The XInput extension's opcode, or -1 when the server has no XInput 2.1 (raw events during another
    // client's grab need 2.1). Non-blocking after the first call.
    int opcode();
    // Adds one use of each event type (XI_RawKeyRelease…) and selects the union; false without XInput 2.1.
    bool add(std::initializer_list<int> types);
    // Removes one use of each event type added before and selects what is left.
    void remove(std::initializer_list<int> types);

private:
    void apply();

    Display* m_display;
    std::map<int, int> m_uses;
    int m_opcode = 0;
    bool m_queried = false;
};
