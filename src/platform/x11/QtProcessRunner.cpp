#include "QtProcessRunner.h"

#include <QProcess>
#include <qcoro/qcoroprocess.h>

QCoro::Task<ProcessResult> QtProcessRunner::run(QString program, QStringList arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardOutputFile(QProcess::nullDevice());
    ProcessResult result;
    if (!co_await qCoro(process).start()) {
        result.launchError = process.errorString();
        co_return result;
    }
    co_await qCoro(process).waitForFinished(-1);
    result.exitStatus = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.standardError = process.readAllStandardError();
    co_return result;
}
