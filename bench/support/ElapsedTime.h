#pragma once

#include <QElapsedTimer>
#include <chrono>
#include <functional>

// Time measured the way every benchmark reports it: milliseconds, to the nanosecond the clock gives.

// Milliseconds the timer has run.
double millisecondsSince(const QElapsedTimer& timer);
// Milliseconds from the timer's start until done() holds, asked every millisecond while the event loop runs;
// -1 when the guard ran out first.
double millisecondsUntil(const QElapsedTimer& since, const std::function<bool()>& done,
                         std::chrono::milliseconds guard = std::chrono::seconds(20));
