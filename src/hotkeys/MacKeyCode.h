#pragma once

#include <QtGlobal>

// macOS virtual key codes that code refers to by name. Stored hotkeys use these codes on every platform;
// the full name tables live with the parser and the formatter.
namespace MacKeyCode {
// The keys of the synthetic shortcuts: select all, copy, paste.
constexpr quint16 a = 0;
constexpr quint16 c = 8;
constexpr quint16 v = 9;
constexpr quint16 returnKey = 36;
constexpr quint16 tab = 48;
constexpr quint16 space = 49;
constexpr quint16 deleteBackward = 51;
constexpr quint16 escape = 53;
constexpr quint16 keypadEnter = 76;
constexpr quint16 deleteForward = 117;
// The key beside Left Shift on ISO keyboards; neither name table has a row for it.
constexpr quint16 isoSection = 10;
// A key with no macOS counterpart. Far above every real code, so no table ever names it.
constexpr quint16 none = 0xFFFF;
} // namespace MacKeyCode
