#include "ElapsedTime.h"

#include "EventLoopWait.h"

using namespace std::chrono_literals;

double millisecondsSince(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double millisecondsUntil(const QElapsedTimer& since, const std::function<bool()>& done,
                         std::chrono::milliseconds guard)
{
    while (since.elapsed() < guard.count()) {
        if (done()) {
            return millisecondsSince(since);
        }
        pauseFor(1ms);
    }
    return -1;
}
