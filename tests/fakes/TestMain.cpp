#include <QCoreApplication>
#include <gtest/gtest.h>

// Core tests need an application object for timers, signals and networking, but no display.
int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
