#pragma once

#include <QString>

// What the user calls the modifiers that stored hotkeys name Command and Option: so on macOS, the Super
// (Windows) key and Alt elsewhere.
struct PlatformKeyNames {
    QString command;
    QString option;

    // The names on the platform the application runs on. Needs the GUI application.
    static PlatformKeyNames current();
};
