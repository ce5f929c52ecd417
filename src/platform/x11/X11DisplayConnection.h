#pragma once

#include <QByteArray>
#include <memory>

// Xlib's own declaration, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;

// One connection to the X server, closed when it goes. Null when no server answered.
class X11DisplayConnection {
public:
    // Opens the display named by DISPLAY (or the given name).
    explicit X11DisplayConnection(const QByteArray& name = {});

    Display* get() const { return m_display.get(); }
    // Whether the server offers XTest, which synthetic keys and the input grant both rest on. False for
    // a null display.
    static bool hasXTest(Display* display);
    // Whether the server offers XInput 2, which the global input monitor listens through. False for a null
    // display.
    static bool hasXInput2(Display* display);
    explicit operator bool() const { return m_display != nullptr; }

private:
    struct Closer {
        void operator()(Display* display) const;
    };
    std::unique_ptr<Display, Closer> m_display;
};
