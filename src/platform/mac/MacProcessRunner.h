#pragma once

#include "platform/ProcessRunner.h"

// Runs a tool as an NSTask; the wait for its end happens off the GUI thread, and the result comes back on it.
class MacProcessRunner : public ProcessRunner {
public:
    QCoro::Task<ProcessResult> run(QString program, QStringList arguments) override;
};
