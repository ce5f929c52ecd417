#include <QApplication>
#include <gtest/gtest.h>

// X11 tests talk to a real (private) X server and need a GUI application.
int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
