#include <QApplication>
#include <gtest/gtest.h>

// Widget tests build real widgets but never need a display: Qt's offscreen platform stands in, also while
// the test runner lists the cases.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
