#include "platform/x11/X11Pasteboard.h"

#include "EventLoopWait.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "clipboard/ClipboardHistoryService.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QEventLoop>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// Runs xclip on the CLIPBOARD selection without blocking the event loop.
QByteArray xclip(const QStringList& arguments, const QByteArray& input = {})
{
    QProcess process;
    process.start(QStringLiteral("xclip"),
                  QStringList{QStringLiteral("-selection"), QStringLiteral("clipboard")} + arguments);
    if (!process.waitForStarted(5000)) {
        ADD_FAILURE() << "xclip did not start";
        return {};
    }
    if (!input.isNull()) {
        process.write(input);
        process.closeWriteChannel();
    }
    QByteArray output;
    QObject::connect(&process, &QProcess::readyReadStandardOutput,
                     [&] { output += process.readAllStandardOutput(); });
    const bool finished = spinUntil([&] { return process.state() == QProcess::NotRunning; }, 10s);
    EXPECT_TRUE(finished) << "xclip " << arguments.join(u' ').toStdString();
    output += process.readAllStandardOutput();
    return output;
}

QByteArray pngImage(int size)
{
    QImage image(size, size, QImage::Format_RGB32);
    auto* random = QRandomGenerator::global();
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            image.setPixel(x, y, random->generate());
        }
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

class X11PasteboardTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(pasteboard.isConnected()) << "needs an X server with XFixes"; }
    void TearDown() override
    {
        if (owner.state() != QProcess::NotRunning) {
            owner.kill();
            owner.waitForFinished();
        }
    }

    // Another client copies text; returns once this pasteboard has seen the change.
    void copyWithXclip(const QByteArray& text, const QStringList& extra = {})
    {
        const qint64 before = pasteboard.changeCount();
        xclip(extra + QStringList{QStringLiteral("-i")}, text);
        ASSERT_TRUE(spinUntil([&] { return pasteboard.changeCount() != before; }));
    }

    // A separate Qt process owns the clipboard with these type=bytes values.
    void ownWithQt(const QList<std::pair<QString, QByteArray>>& values)
    {
        QStringList arguments;
        for (const auto& [type, bytes] : values) {
            const QString path = files.filePath(QString::number(arguments.size()));
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(bytes);
            arguments.append(type + u'=' + path);
        }
        const qint64 before = pasteboard.changeCount();
        owner.start(QCoreApplication::applicationDirPath() + QStringLiteral("/mivora_clipboard_owner"),
                    arguments);
        ASSERT_TRUE(owner.waitForReadyRead(10000));
        ASSERT_TRUE(spinUntil([&] { return pasteboard.changeCount() != before; }));
    }

    X11Pasteboard pasteboard;
    QProcess owner;
    QTemporaryDir files;
};

TEST_F(X11PasteboardTest, HistoryRecordsForeignCopiesButNotConcealedOnes)
{
    TestClock clock;
    MemoryDefaultsStore defaults;
    ClipboardHistoryService history(pasteboard, clock, defaults);
    history.start();
    auto poll = [&] { clock.advance(ClipboardHistoryService::pollInterval); };

    copyWithXclip(QStringLiteral("copied by xclip \u2713").toUtf8());
    poll();
    ASSERT_EQ(history.items().size(), 1);
    EXPECT_EQ(history.items().first().text, QStringLiteral("copied by xclip \u2713"));

    ownWithQt({{QStringLiteral("text"), "hunter2 password"},
               {QStringLiteral("x-kde-passwordManagerHint"), "secret"}});
    EXPECT_EQ(pasteboard.string(), QStringLiteral("hunter2 password"));
    poll();
    EXPECT_EQ(history.items().size(), 1) << "a password manager's copy is skipped";

    // The same text copied plainly afterwards is history.
    copyWithXclip("hunter2 password");
    poll();
    ASSERT_EQ(history.items().size(), 2);
    EXPECT_EQ(history.items().first().text, QStringLiteral("hunter2 password"));

    // A text larger than one X request arrives incrementally and is stored whole.
    const QByteArray huge = QByteArray("0123456789abcdef\n").repeated(300000);
    copyWithXclip(huge);
    poll();
    EXPECT_EQ(history.items().first().text.toUtf8(), huge.trimmed());
}

TEST_F(X11PasteboardTest, SnapshotRestoresEveryTypeByteForByte)
{
    const QList<std::pair<QString, QByteArray>> original{
        {QStringLiteral("text"), QStringLiteral("plain text \u00e9\u4e2d").toUtf8()},
        {QStringLiteral("text/html"), "<b>bold</b> &amp; <i>more</i>"},
        {QStringLiteral("image/png"), pngImage(400)}, // larger than one piece: served incrementally
        {QStringLiteral("text/uri-list"), "file:///tmp/a%20file.txt\r\nhttps://example.org/\r\n"},
    };
    ownWithQt(original);
    const PasteboardSnapshot snapshot = pasteboard.snapshot();
    ASSERT_EQ(snapshot.items.size(), 1);
    QHash<QString, QByteArray> saved;
    for (const SavedPasteboardValue& value : snapshot.items.first().values) {
        saved.insert(value.type, value.data);
    }
    EXPECT_EQ(saved.value(QStringLiteral("UTF8_STRING")), original[0].second);
    for (const auto& [type, bytes] : original.mid(1)) {
        EXPECT_EQ(saved.value(type), bytes) << type.toStdString();
    }

    // Something else lands on the clipboard, as during a transient use; then the snapshot goes back.
    pasteboard.writeString(QStringLiteral("transient"));
    EXPECT_TRUE(spinUntil([&] { return owner.state() == QProcess::NotRunning; })) << "the old owner lost it";
    EXPECT_EQ(xclip({QStringLiteral("-o")}), QByteArray("transient"));
    pasteboard.restore(snapshot);
    ASSERT_TRUE(pasteboard.ownsClipboard());

    // An independent client reads every type back from us while our event loop runs.
    const QByteArray targets = xclip({QStringLiteral("-o"), QStringLiteral("-t"), QStringLiteral("TARGETS")});
    for (const SavedPasteboardValue& value : snapshot.items.first().values) {
        EXPECT_TRUE(targets.contains(value.type.toUtf8())) << value.type.toStdString();
        EXPECT_EQ(xclip({QStringLiteral("-o"), QStringLiteral("-t"), value.type}), value.data)
            << value.type.toStdString();
    }
    EXPECT_EQ(pasteboard.snapshot(), snapshot);
}

TEST_F(X11PasteboardTest, ChangeCountFollowsEveryOwnershipChange)
{
    qint64 count = pasteboard.changeCount();
    pasteboard.writeString(QStringLiteral("ours"));
    EXPECT_GT(pasteboard.changeCount(), count) << "our own write counts at once";
    EXPECT_EQ(pasteboard.string(), QStringLiteral("ours"));

    count = pasteboard.changeCount();
    copyWithXclip("theirs");
    EXPECT_FALSE(pasteboard.ownsClipboard());
    EXPECT_EQ(pasteboard.string(), QStringLiteral("theirs"));
    EXPECT_EQ(pasteboard.changeCount(), count + 1);

    pasteboard.clear();
    EXPECT_EQ(pasteboard.changeCount(), count + 2);
    EXPECT_FALSE(pasteboard.types());
    EXPECT_FALSE(pasteboard.string());

    // An empty snapshot leaves the clipboard empty; an empty item still owns it with no types.
    pasteboard.restore(PasteboardSnapshot{{SavedPasteboardItem{}}});
    EXPECT_EQ(pasteboard.types(), QStringList());
    pasteboard.restore(PasteboardSnapshot{});
    EXPECT_FALSE(pasteboard.types());
}

} // namespace
