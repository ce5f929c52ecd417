#pragma once

#include "platform/ProcessRunner.h"

// Runs tools through QProcess, awaiting their end on the event loop.
class QtProcessRunner : public ProcessRunner {
public:
    QCoro::Task<ProcessResult> run(QString program, QStringList arguments) override;
};
