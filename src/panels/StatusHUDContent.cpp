#include "panels/StatusHUDContent.h"

StatusHUDContent StatusHUDContent::of(const ActionStatus& status)
{
    switch (status.kind) {
    case ActionStatus::Kind::running:
        return {QStringLiteral("progress.indicator"), Tone::blue, status.text};
    case ActionStatus::Kind::done:
        return {QStringLiteral("checkmark.circle.fill"), Tone::green, status.text};
    case ActionStatus::Kind::failed:
        return {QStringLiteral("exclamationmark.triangle.fill"), Tone::orange, status.text};
    case ActionStatus::Kind::idle:
        break;
    }
    return {QStringLiteral("checkmark.circle"), Tone::secondary, QStringLiteral("Ready")};
}
