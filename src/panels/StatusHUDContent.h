#pragma once

#include "core/ActionStatus.h"

#include <QString>

// What the status overlay shows for one status: a symbol, the colour it is drawn in and one line of text.
struct StatusHUDContent {
    enum class Tone { blue, green, orange, secondary };

    QString symbolName;
    Tone tone = Tone::secondary;
    QString text;

    static StatusHUDContent of(const ActionStatus& status);
    bool operator==(const StatusHUDContent&) const = default;
};
