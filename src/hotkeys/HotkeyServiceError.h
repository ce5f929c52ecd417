#pragma once

#include "core/MivoraError.h"

// Why the configured hotkeys could not all be put in force.
class HotkeyServiceError : public MivoraError {
public:
    static HotkeyServiceError invalidHotkey(const QString& hotkey)
    {
        return HotkeyServiceError(QStringLiteral("Invalid hotkey: ") + hotkey);
    }
    static HotkeyServiceError installFailed(qint32 status)
    {
        return HotkeyServiceError(QStringLiteral("Could not install hotkey handler: ") +
                                  QString::number(status));
    }
    static HotkeyServiceError registerFailed(const QString& hotkey, qint32 status)
    {
        return HotkeyServiceError(QStringLiteral("Could not register ") + hotkey + QStringLiteral(": ") +
                                  QString::number(status));
    }

private:
    using MivoraError::MivoraError;
};
