#include "AwaitTask.h"
#include "TestFieldProcess.h"
#include "X11ExchangeStack.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QWidget>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

PasteboardSnapshot plainText(const QString& text)
{
    return {{{{{QStringLiteral("UTF8_STRING"), text.toUtf8()}}}}};
}

// The paste, with a mark for its end, so a test can act while it still waits to restore the clipboard.
QCoro::Task<> pasteAndMark(PasteboardService& service, QString text, bool& finished)
{
    co_await service.pasteTransient(std::move(text), std::nullopt, PasteboardTiming::standardTiming());
    finished = true;
}

// The whole exchange over the real display: this process's clipboard, the window manager's activations and
// synthetic keys into a separate application with a text field.
class ExchangeEndToEndTest : public ::testing::Test, protected X11ExchangeStack {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(display && pasteboard.isConnected()) << "needs an X server with XFixes and XTest";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
    }

    void TearDown() override { pasteboard.clear(); }

    // Starts the field and waits until it is the remembered target and has the keyboard focus.
    void startField(const QString& text)
    {
        ASSERT_TRUE(field.start(QStringLiteral("MivoraEndToEndField"), QStringLiteral("End to end"), text));
        ASSERT_TRUE(
            spinUntil([&] { return focus.rememberedProcessIdentifier() == field.processIdentifier(); }));
        ASSERT_TRUE(field.waitForFocus());
    }

    TestFieldProcess field;
};

TEST_F(ExchangeEndToEndTest, ReadingTheSelectionCopiesItOutAndPutsEveryClipboardTypeBack)
{
    const PasteboardSnapshot original{{{{
        {QStringLiteral("UTF8_STRING"), QByteArrayLiteral("before \xe2\x9c\x93")},
        {QStringLiteral("text/html"), QByteArrayLiteral("<b>before</b>")},
        // Binary with zero bytes; the clipboard carries it without looking inside.
        {QStringLiteral("image/png"), QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\xff", 18).repeated(300)},
    }}}};
    pasteboard.restore(original);
    startField(QStringLiteral("  selected words  "));

    const QString text =
        AwaitTask::run(service.readSelectedTextTransient(true, false, PasteboardTiming::standardTiming()));

    EXPECT_EQ(text, QStringLiteral("  selected words  "));
    EXPECT_EQ(field.selection(), QStringLiteral("  selected words  "));
    EXPECT_EQ(capture.log, QStringList({QStringLiteral("suppress 3500"), QStringLiteral("finish")}));
    const std::optional<QByteArray> targets = clipboardBytes(QStringLiteral("TARGETS"));
    ASSERT_TRUE(targets);
    for (const SavedPasteboardValue& value : original.items.first().values) {
        EXPECT_TRUE(targets->contains(value.type.toUtf8())) << value.type.toStdString();
        EXPECT_EQ(clipboardBytes(value.type), value.data) << value.type.toStdString();
    }
}

TEST_F(ExchangeEndToEndTest, QuickReadOfAnEmptyFieldFailsWithTheClipboardUntouched)
{
    pasteboard.restore(plainText(QStringLiteral("kept")));
    startField({});

    EXPECT_THROW(
        AwaitTask::run(service.readSelectedTextTransient(true, false, PasteboardTiming::quickTiming())),
        PasteboardServiceError);
    EXPECT_EQ(clipboardBytes(), QByteArrayLiteral("kept"));
}

TEST_F(ExchangeEndToEndTest, PasteLandsInTheRememberedWindowNotTheFirstAndTheClipboardComesBack)
{
    pasteboard.restore(plainText(QStringLiteral("kept")));
    field.addOtherWindow(QStringLiteral("Other window of the field"));
    ASSERT_TRUE(field.start(QStringLiteral("MivoraEndToEndField"), QStringLiteral("End to end")));
    const std::optional<QString> fieldWindow = field.window();
    ASSERT_TRUE(fieldWindow);
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"),
                        {QStringLiteral("windowactivate"), QStringLiteral("--sync"), *fieldWindow}));
    ASSERT_TRUE(field.waitForFocus());
    ASSERT_EQ(focus.rememberedProcessIdentifier(), field.processIdentifier());
    // This program's own window takes the front, as a panel does; the target stays remembered.
    QWidget panel;
    panel.setWindowTitle(QStringLiteral("Mivora own panel"));
    panel.show();
    ASSERT_TRUE(
        runTool(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), QStringLiteral("--sync"),
                                            QString::number(panel.winId())}));
    ASSERT_TRUE(spinUntil([&] {
        const std::optional<RunningApplication> front = workspace.frontmostApplication();
        return front && front->processIdentifier == workspace.currentProcessIdentifier();
    }));

    AwaitTask::run(service.pasteTransient(QStringLiteral("pasted result"), std::nullopt,
                                          PasteboardTiming::standardTiming()));
    EXPECT_EQ(field.text(), QStringLiteral("pasted result"));
    EXPECT_EQ(clipboardBytes(), QByteArrayLiteral("kept"));
    EXPECT_EQ(capture.log, QStringList({QStringLiteral("suppress 3500"), QStringLiteral("finish")}));
}

TEST_F(ExchangeEndToEndTest, CopyByAnotherClientWhileThePasteWaitsIsKept)
{
    pasteboard.restore(plainText(QStringLiteral("kept")));
    startField({});

    bool finished = false;
    QCoro::Task<> paste = pasteAndMark(service, QStringLiteral("pasted result"), finished);
    // The field says when the paste has landed; asking it instead could wait on a field still busy reading
    // the clipboard.
    ASSERT_EQ(field.nextTextChange(), QStringLiteral("pasted result"));
    // Another client copies during the paste's wait: Qt's own connection, so the clipboard changes hands at
    // once (a separate copier process may start after the wait on a loaded machine) and this process serves
    // it while the test waits.
    QGuiApplication::clipboard()->setText(QStringLiteral("copied meanwhile"));
    ASSERT_TRUE(spinUntil([&] { return !pasteboard.ownsClipboard(); }));
    EXPECT_FALSE(finished) << "the copy came after the restore, not during the wait";

    AwaitTask::run(std::move(paste));
    EXPECT_EQ(clipboardBytes(), QByteArrayLiteral("copied meanwhile"));
}

} // namespace
