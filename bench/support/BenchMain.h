#pragma once

#include "BenchArguments.h"

#include <QApplication>

// Runs one benchmark under a QApplication: makes the Driver, calls its start(), then its run(count) with the
// count given as the first command-line argument (fallback when there is none, never below minimum). The
// exit code is 0 when both succeeded; each says on the standard error what failed.
template <typename Driver> int runBenchmark(int argc, char** argv, int fallback, int minimum)
{
    QApplication application(argc, argv);
    const int count = countArgument(argc, argv, 1, fallback, minimum);
    Driver driver;
    return driver.start() && driver.run(count) ? 0 : 1;
}
