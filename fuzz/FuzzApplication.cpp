#include "FuzzApplication.h"

#include <QCoreApplication>
#include <cstdlib>

QCoreApplication& fuzzApplication()
{
    // libFuzzer's own flags stay out of Qt's argument parsing.
    static int argc = 1;
    static char name[] = "mivora-fuzzer";
    static char* argv[] = {name, nullptr};
    static auto* application = new QCoreApplication(argc, argv);
    return *application;
}

void fuzzCheck(bool holds)
{
    if (!holds) {
        std::abort();
    }
}
