#pragma once

#include <QtGlobal>
#include <optional>

// What another process holds in memory, as Linux reports it in /proc.

// The process's resident set (VmRSS) in KiB; nullopt when the process is gone or the figure is missing.
std::optional<long> residentKibibytes(qint64 processId);
// The same in MiB; 0 when the process is gone or the figure is missing.
double residentMegabytes(qint64 processId);
