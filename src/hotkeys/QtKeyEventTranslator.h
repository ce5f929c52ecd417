#pragma once

#include "hotkeys/HotkeyKeyEvent.h"

#include <Qt>
#include <optional>

// Turns a Qt key press into the macOS terms that capture and the stored texts use, so the recorder works
// on any platform.
class QtKeyEventTranslator {
public:
    // Where the press came from decides what its native code means and which Qt modifier is Command.
    enum class Source {
        // Only Qt's key is known: layout-dependent, assumes a US layout for shifted symbols. Meta is Command.
        Generic,
        // The native scan code is an XKB key code (evdev code + 8), as on xcb and Wayland. Meta is Command.
        Xkb,
        // The native virtual key is already the macOS key code; Qt reports Command as Control there.
        Mac,
    };

    explicit QtKeyEventTranslator(Source source) : m_source(source) {}

    // nativeCode: QKeyEvent::nativeScanCode() for Xkb, nativeVirtualKey() for Mac, ignored for Generic.
    // text: QKeyEvent::text(), used only when the key itself types no character.
    HotkeyKeyEvent translate(Qt::Key key, Qt::KeyboardModifiers modifiers, quint32 nativeCode,
                             const QString& text) const;

    // The physical key behind an XKB key code; absent for keys macOS has no code for.
    static std::optional<quint16> macKeyCodeForXkbKeyCode(quint32 xkbKeyCode);
    // The key that produces this Qt key on a US layout, shifted symbols included.
    static std::optional<quint16> macKeyCodeForQtKey(Qt::Key key);

private:
    quint16 macKeyCode(Qt::Key key, quint32 nativeCode) const;
    HotkeyModifiers macModifiers(Qt::KeyboardModifiers modifiers) const;

    Source m_source;
};
