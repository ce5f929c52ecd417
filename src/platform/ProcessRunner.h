#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <qcoro/qcorotask.h>

// What one run of an external program left behind.
struct ProcessResult {
    // The system's text when the program could not be started; the other fields are then meaningless.
    std::optional<QString> launchError;
    int exitStatus = 0;
    QByteArray standardError;
};

// Runs external tools.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;

    // Starts the program with the arguments and completes when it has ended. GUI thread; suspends, never
    // blocks.
    virtual QCoro::Task<ProcessResult> run(QString program, QStringList arguments) = 0;
};
