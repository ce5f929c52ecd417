#include "EventLoopWait.h"
#include "ResidentAppProcess.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"

#include <QPoint>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

bool xdotool(const QStringList& arguments)
{
    return runTool(QStringLiteral("xdotool"), arguments).has_value();
}

// The real program's quick panel over a real text field of another process.
class QuickPanelEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(keyboard.isConnected()) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
        ASSERT_TRUE(keyboard.useKeymap(QStringLiteral("us,ru")));
        // The layout row first, so its place on the panel is known.
        for (const char* key : {"mivora.quickMenu.actions", "mivora.quickMenu.order"}) {
            app.setSetting(QString::fromLatin1(key), QStringLiteral(R"(["layout","ai"])"));
        }
        ASSERT_TRUE(app.start());
        ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
        ASSERT_TRUE(field.start(QStringLiteral("MivoraQuickField"), QStringLiteral("Quick panel field"),
                                QStringLiteral("ghbdtn")));
        ASSERT_TRUE(field.waitForFocus());
        ASSERT_TRUE(field.select(0, 6));
    }

    // Alt+Q as a person presses it, with the pointer near the top left so the panel opens there.
    std::optional<QString> openPanel()
    {
        xdotool({QStringLiteral("mousemove"), QStringLiteral("5"), QStringLiteral("5")});
        keyboard.press(QStringLiteral("Alt_L"));
        pauseFor(50ms);
        keyboard.press(QStringLiteral("q"));
        pauseFor(150ms);
        keyboard.release(QStringLiteral("q"));
        pauseFor(20ms);
        keyboard.release(QStringLiteral("Alt_L"));
        std::optional<QString> found;
        spinUntil(
            [&] {
                const auto ids = runTool(QStringLiteral("xdotool"),
                                         {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                          QStringLiteral("--name"), QStringLiteral("^MivoraAI$")});
                if (ids && !ids->trimmed().isEmpty()) {
                    found = QString::fromLatin1(ids->trimmed().split('\n').first());
                }
                return found.has_value();
            },
            10s);
        return found;
    }

    // A click as a person makes it: the button held for a moment.
    static void click(const QStringList& where)
    {
        ASSERT_TRUE(
            xdotool(QStringList{QStringLiteral("mousemove")} + where +
                    QStringList{QStringLiteral("mousedown"), QStringLiteral("1"), QStringLiteral("sleep"),
                                QStringLiteral("0.15"), QStringLiteral("mouseup"), QStringLiteral("1")}));
    }

    X11TestClient keyboard;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess field;
};

} // namespace

TEST_F(QuickPanelEndToEndTest, OpensWithoutTakingTheFocusAndItsRowReplacesTheSelection)
{
    const std::optional<QString> panel = openPanel();
    ASSERT_TRUE(panel) << app.standardError().toStdString();
    EXPECT_TRUE(field.waitForFocus()) << "the panel took the focus";
    EXPECT_EQ(field.selection(), QStringLiteral("ghbdtn"));

    // The first row: below the header, at the left.
    click({QStringLiteral("--window"), *panel, QStringLiteral("80"), QStringLiteral("62")});
    EXPECT_TRUE(spinUntil([&] { return field.text() == QStringLiteral("привет"); }, 10s))
        << field.text().value_or(QString()).toStdString();
    EXPECT_FALSE(windowShown(QStringLiteral("MivoraAI")));
}

TEST_F(QuickPanelEndToEndTest, AClickOutsideHidesIt)
{
    ASSERT_TRUE(openPanel());
    click({QStringLiteral("1200"), QStringLiteral("900")});
    EXPECT_TRUE(spinUntil([] { return !windowShown(QStringLiteral("MivoraAI")); }, 5s));
    EXPECT_EQ(field.text(), QStringLiteral("ghbdtn"));
    EXPECT_TRUE(app.isRunning());
}
