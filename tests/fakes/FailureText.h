#pragma once

#include "AwaitTask.h"
#include "core/MivoraError.h"

#include <QString>

// The user-facing text of whatever the task throws; empty when it returns.
template <typename T> QString failureText(QCoro::Task<T> task)
{
    try {
        AwaitTask::run(std::move(task));
    } catch (const MivoraError& error) {
        return error.errorDescription();
    }
    return {};
}
