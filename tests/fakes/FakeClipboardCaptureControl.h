#pragma once

#include "core/ClipboardCaptureControl.h"

#include <QStringList>
#include <functional>

// Records the bracket calls of transient clipboard uses into a log, with whatever note the test adds.
class FakeClipboardCaptureControl : public ClipboardCaptureControl {
public:
    QStringList log;
    std::function<QString()> noteOnFinish;

    void suppressCapture(Clock::Duration duration) override
    {
        log.append(QStringLiteral("suppress %1").arg(duration.count()));
    }
    void finishTransientPasteboardUse() override
    {
        log.append(noteOnFinish ? QStringLiteral("finish ") + noteOnFinish() : QStringLiteral("finish"));
    }
};
