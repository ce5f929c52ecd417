#pragma once

#include "platform/ProcessRunner.h"

#include <functional>

// Answers each run with the scripted result and records the command line.
class FakeProcessRunner : public ProcessRunner {
public:
    std::function<ProcessResult(const QStringList& arguments)> answer = [](const QStringList&) {
        return ProcessResult{};
    };
    QList<QStringList> commandLines;

    QCoro::Task<ProcessResult> run(QString program, QStringList arguments) override
    {
        commandLines.append(QStringList{program} + arguments);
        co_return answer(arguments);
    }
};
