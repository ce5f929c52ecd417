#include "EventLoopWait.h"
#include "ResidentAppProcess.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QSettings>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// Places in the main window at its first size (900 by 600), as a user finds them.
constexpr QPoint languagePicker{771, 97};
constexpr QPoint fixLayoutRecorder{781, 224};
constexpr QRect sidebar{0, 0, 220, 350};
constexpr QRect titleStrip{220, 0, 300, 30};

bool xdotool(const QStringList& arguments)
{
    return runTool(QStringLiteral("xdotool"), arguments).has_value();
}

// The settings window of the real program on a desktop with a tray host, driven with the mouse and the
// keyboard of a second X client.
class SettingsWindowEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(keyboard.isConnected()) << "needs an X server";
        ASSERT_TRUE(keyboard.useKeymap(QStringLiteral("us,ru")));
        ASSERT_TRUE(startTrayHost(trayHost)) << "needs a tray host (trayer)";
    }
    void TearDown() override
    {
        trayHost.kill();
        trayHost.waitForFinished();
    }

    // The main window's X id once it is shown.
    std::optional<QString> mainWindow()
    {
        return findWindow({QStringLiteral("--name"), QStringLiteral("^MivoraAI$")});
    }

    static void click(const QString& window, QPoint at)
    {
        ASSERT_TRUE(
            xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), window, QString::number(at.x()),
                     QString::number(at.y()), QStringLiteral("click"), QStringLiteral("1")}));
        pauseFor(300ms);
    }

    static QImage grab(const QString& window, QRect area)
    {
        return QGuiApplication::primaryScreen()
            ->grabWindow(window.toULongLong(), area.x(), area.y(), area.width(), area.height())
            .toImage();
    }

    // The stored value as the program saved it, read again at each call.
    QVariant saved(const QString& key) const
    {
        const QString file = app.environment().value(QStringLiteral("XDG_CONFIG_HOME")) +
                             QStringLiteral("/MivoraAI/mivora.conf");
        return QSettings(file, QSettings::IniFormat).value(key);
    }

    // A chord as a person presses it: the modifiers one after another, the letter, a moment held, and the
    // keys let go in the order given.
    void holdChord(const QStringList& pressOrder, const QStringList& releaseOrder)
    {
        for (const QString& key : pressOrder) {
            keyboard.press(key);
            pauseFor(40ms);
        }
        pauseFor(250ms);
        for (const QString& key : releaseOrder) {
            keyboard.release(key);
            pauseFor(20ms);
        }
    }

    X11TestClient keyboard;
    QProcess trayHost;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess field;
};

} // namespace

TEST_F(SettingsWindowEndToEndTest, OpenedFromTheTrayItSwitchesToRussianWhileShown)
{
    app.setSetting(QStringLiteral("mivora.openMainWindowOnLaunch"), false);
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    // The tray icon sits at the right end of the strip once docked; its menu's first entry opens the window.
    pauseFor(1s);
    ASSERT_TRUE(xdotool({QStringLiteral("mousemove"), QStringLiteral("1588"), QStringLiteral("12"),
                         QStringLiteral("click"), QStringLiteral("1")}));
    pauseFor(500ms);
    ASSERT_TRUE(xdotool({QStringLiteral("key"), QStringLiteral("Down"), QStringLiteral("Return")}));
    const std::optional<QString> window = mainWindow();
    ASSERT_TRUE(window) << "the tray menu did not open the window";
    pauseFor(500ms);
    const QImage englishSidebar = grab(*window, sidebar);
    const QImage englishTitle = grab(*window, titleStrip);

    click(*window, languagePicker);
    ASSERT_TRUE(xdotool({QStringLiteral("key"), QStringLiteral("Down"), QStringLiteral("Return")}));
    EXPECT_TRUE(
        spinUntil([&] { return saved(QStringLiteral("mivora.uiLanguage")) == QStringLiteral("ru"); }, 5s));
    EXPECT_TRUE(spinUntil([&] { return grab(*window, sidebar) != englishSidebar; }, 5s))
        << "the sidebar kept its English titles";
    EXPECT_TRUE(spinUntil([&] { return grab(*window, titleStrip) != englishTitle; }, 5s))
        << "the page title kept its English text";
    EXPECT_EQ(app.terminate(), 0);
}

TEST_F(SettingsWindowEndToEndTest, ARecordedLayoutHotkeyWorksAndTheOldOneNoLongerDoes)
{
    app.setSetting(QStringLiteral("mivora.openMainWindowOnLaunch"), true);
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    const std::optional<QString> window = mainWindow();
    ASSERT_TRUE(window);
    pauseFor(500ms);
    click(*window, {100, 8 + 34 * 8 + 17});
    click(*window, fixLayoutRecorder);

    // Alt, Control and K, let go Alt first: recorded in the canonical order, not run as a fix.
    holdChord({QStringLiteral("Alt_L"), QStringLiteral("Control_L"), QStringLiteral("k")},
              {QStringLiteral("Alt_L"), QStringLiteral("k"), QStringLiteral("Control_L")});
    ASSERT_TRUE(spinUntil(
        [&] { return saved(QStringLiteral("mivora.layoutHotkey")) == QStringLiteral("Control+Alt+K"); }, 5s))
        << saved(QStringLiteral("mivora.layoutHotkey")).toString().toStdString();

    ASSERT_TRUE(field.start(QStringLiteral("MivoraSettingsField"), QStringLiteral("Settings field"),
                            QStringLiteral("ghbdtn")));
    ASSERT_TRUE(field.waitForFocus());
    ASSERT_TRUE(field.select(0, 6));
    holdChord({QStringLiteral("Alt_L"), QStringLiteral("a")}, {QStringLiteral("a"), QStringLiteral("Alt_L")});
    EXPECT_FALSE(spinUntil([&] { return field.text() == QStringLiteral("привет"); }, 1500ms))
        << "the old chord still runs the fix";

    ASSERT_TRUE(field.setText(QStringLiteral("ghbdtn")));
    ASSERT_TRUE(field.select(0, 6));
    ASSERT_TRUE(spinUntil([&] { return field.selection() == QStringLiteral("ghbdtn"); }, 5s));
    holdChord({QStringLiteral("Control_L"), QStringLiteral("Alt_L"), QStringLiteral("k")},
              {QStringLiteral("Control_L"), QStringLiteral("Alt_L"), QStringLiteral("k")});
    EXPECT_TRUE(spinUntil([&] { return field.text() == QStringLiteral("привет"); }, 5s))
        << field.text().value_or(QString()).toStdString();
    EXPECT_EQ(app.terminate(), 0);
}
