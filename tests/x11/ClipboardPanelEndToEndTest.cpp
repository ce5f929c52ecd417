#include "ResidentAppProcess.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPoint>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// Where the panel's controls sit, from its top left corner, at the size the test gives it: wide enough for
// the preview beside the list.
const QPoint firstRow(100, 178);
const QPoint firstNoteTab(150, 64);
const QPoint previewToNote(501, 576);

// The real program with its clipboard panel, opened by its hotkey over a text field of another process.
class ClipboardPanelEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(keyboard.isConnected()) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
        ASSERT_TRUE(keyboard.useKeymap(QStringLiteral("us,ru")));
        app.setSetting(QStringLiteral("mivora.clipboardPanel.width"), 700.0);
        app.setSetting(QStringLiteral("mivora.clipboardPanel.height"), 600.0);
        ASSERT_TRUE(app.start());
        ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
        ASSERT_TRUE(field.start(QStringLiteral("MivoraClipboardField"), QStringLiteral("Clipboard field")));
        ASSERT_TRUE(field.waitForFocus());
    }

    // Another client copies; a person takes longer than one poll of the history before the next copy.
    static void copy(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        pauseFor(1500ms);
    }

    // Alt+V as a person presses it; the panel's top left once it is up.
    std::optional<QPoint> openPanel()
    {
        keyboard.press(QStringLiteral("Alt_L"));
        pauseFor(60ms);
        keyboard.press(QStringLiteral("v"));
        pauseFor(120ms);
        keyboard.release(QStringLiteral("v"));
        keyboard.release(QStringLiteral("Alt_L"));
        // Typing goes to the search field only once the panel has the focus.
        if (!spinUntil([] { return windowFocused(QStringLiteral("Clipboard")); }, 10s)) {
            return std::nullopt;
        }
        const std::optional<QByteArray> geometry = runTool(
            QStringLiteral("xdotool"),
            {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
             QStringLiteral("^Clipboard$"), QStringLiteral("getwindowgeometry"), QStringLiteral("--shell")});
        if (!geometry) {
            return std::nullopt;
        }
        QPoint origin;
        for (const QByteArray& line : geometry->split('\n')) {
            if (line.startsWith("X=")) {
                origin.setX(line.mid(2).toInt());
            } else if (line.startsWith("Y=")) {
                origin.setY(line.mid(2).toInt());
            }
        }
        pauseFor(300ms);
        return origin;
    }

    static bool click(QPoint at, int button, int count = 1)
    {
        return runTool(QStringLiteral("xdotool"),
                       {QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()),
                        QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(count),
                        QStringLiteral("--delay"), QStringLiteral("90"), QString::number(button)})
            .has_value();
    }

    void typeText(const QString& text)
    {
        for (const QChar letter : text) {
            keyboard.type({QString(letter)});
            pauseFor(70ms);
        }
    }

    QString notesFile() const
    {
        return QDir(app.environment().value(QStringLiteral("XDG_DATA_HOME")))
            .filePath(QStringLiteral("ai.mivora.native/clipboard-notes.json"));
    }

    X11TestClient keyboard;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess field;
};

TEST_F(ClipboardPanelEndToEndTest, SearchedItemPastesOnDoubleClickAndBecomesANoteThatOutlivesARestart)
{
    for (const char* text : {"alpha one", "beta two", "gamma three"}) {
        copy(QString::fromUtf8(text));
    }

    std::optional<QPoint> panel = openPanel();
    ASSERT_TRUE(panel) << app.standardError().toStdString();
    typeText(QStringLiteral("beta"));
    pauseFor(300ms);
    ASSERT_TRUE(click(*panel + firstRow, 1, 2));
    EXPECT_TRUE(spinUntil([&] { return field.text() == QStringLiteral("beta two"); }, 10s))
        << field.text().value_or(QString()).toStdString();
    EXPECT_TRUE(spinUntil([] { return clipboardBytes() == QByteArrayLiteral("gamma three"); }, 10s))
        << "the user's clipboard was not given back";
    EXPECT_FALSE(windowShown(QStringLiteral("Clipboard")));

    // The search is still there, and the item still selected: its preview makes it a note.
    panel = openPanel();
    ASSERT_TRUE(panel);
    ASSERT_TRUE(click(*panel + previewToNote, 1));
    ASSERT_TRUE(spinUntil([&] { return QFile::exists(notesFile()); }, 5s));
    QFile notes(notesFile());
    ASSERT_TRUE(notes.open(QIODevice::ReadOnly));
    const QByteArray saved = notes.readAll();
    EXPECT_TRUE(saved.contains("\"title\":\"Notes\"")) << saved.toStdString();
    EXPECT_TRUE(saved.contains("\"text\":\"beta two\"")) << saved.toStdString();
    EXPECT_TRUE(windowShown(QStringLiteral("Clipboard"))) << "the panel moved to the note and stays";

    // The user closes the panel and the program restarts.
    keyboard.type({QStringLiteral("Escape")});
    EXPECT_TRUE(spinUntil([] { return !windowShown(QStringLiteral("Clipboard")); }));
    ASSERT_EQ(app.terminate(), 0) << "still running: " << app.isRunning() << " "
                                  << app.standardError().toStdString();
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys());
    // The paste replaces what is selected.
    ASSERT_TRUE(field.setText(QStringLiteral("old")));
    ASSERT_TRUE(field.select(0, 3));
    const std::optional<QString> fieldWindow = field.window();
    ASSERT_TRUE(fieldWindow);
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"),
                        {QStringLiteral("windowactivate"), QStringLiteral("--sync"), *fieldWindow}));
    ASSERT_TRUE(field.waitForFocus());
    panel = openPanel();
    ASSERT_TRUE(panel);
    ASSERT_TRUE(click(*panel + firstNoteTab, 1));
    pauseFor(300ms);
    keyboard.type({QStringLiteral("Return")});
    EXPECT_TRUE(spinUntil([&] { return field.text() == QStringLiteral("beta two"); }, 10s))
        << "the note did not survive: " << field.text().value_or(QString()).toStdString();
}

} // namespace
