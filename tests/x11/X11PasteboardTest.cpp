#include "platform/x11/X11Pasteboard.h"

#include "AwaitTask.h"
#include "EventLoopWait.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "clipboard/ClipboardHistoryService.h"
#include "core/EventLoopClock.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHash>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <poll.h>
#include <thread>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

using namespace std::chrono_literals;

namespace {

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

// A clipboard manager as a desktop runs one: it owns CLIPBOARD_MANAGER and, asked for SAVE_TARGETS, reads
// every target of the clipboard's owner before it answers. It runs on a connection and a thread of its own,
// since the owner's hand-over at exit keeps the test's thread busy.
class ClipboardManagerStandIn {
public:
    ClipboardManagerStandIn()
    {
        m_display = XOpenDisplay(nullptr);
        m_window = XCreateSimpleWindow(m_display, DefaultRootWindow(m_display), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(m_display, atom("CLIPBOARD_MANAGER"), m_window, CurrentTime);
        XSync(m_display, False);
        m_thread = std::thread([this] { serveOneSaveRequest(); });
    }
    ~ClipboardManagerStandIn()
    {
        finish();
        XDestroyWindow(m_display, m_window);
        XCloseDisplay(m_display);
    }

    void finish()
    {
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }

    // Filled by the thread; read after finish().
    QHash<QString, QByteArray> saved;
    bool answered = false;

private:
    Atom atom(const char* name) { return XInternAtom(m_display, name, False); }

    // The next event that wanted accepts, or nothing within the guard.
    std::optional<XEvent> next(const std::function<bool(const XEvent&)>& wanted)
    {
        const QDeadlineTimer guard(10s);
        while (!guard.hasExpired()) {
            while (XPending(m_display) > 0) {
                XEvent event;
                XNextEvent(m_display, &event);
                if (wanted(event)) {
                    return event;
                }
            }
            pollfd descriptor{ConnectionNumber(m_display), POLLIN, 0};
            ::poll(&descriptor, 1, 50);
        }
        return std::nullopt;
    }

    std::optional<QByteArray> convert(Atom target)
    {
        const Atom property = atom("STAND_IN_VALUE");
        XConvertSelection(m_display, atom("CLIPBOARD"), target, property, m_window, CurrentTime);
        const std::optional<XEvent> answer = next([&](const XEvent& event) {
            return event.type == SelectionNotify && event.xselection.target == target;
        });
        if (!answer || answer->xselection.property == None) {
            return std::nullopt;
        }
        Atom type = None;
        int format = 0;
        unsigned long count = 0;
        unsigned long after = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(m_display, m_window, property, 0, 1 << 20, True, AnyPropertyType, &type, &format,
                           &count, &after, &data);
        QByteArray bytes;
        if (format == 32) {
            for (unsigned long i = 0; i < count; ++i) {
                const quint32 value = quint32(reinterpret_cast<const long*>(data)[i]);
                bytes.append(reinterpret_cast<const char*>(&value), 4);
            }
        } else if (data != nullptr) {
            bytes = QByteArray(reinterpret_cast<const char*>(data), qsizetype(count) * (format / 8));
        }
        XFree(data);
        return bytes;
    }

    void serveOneSaveRequest()
    {
        const std::optional<XEvent> request = next([&](const XEvent& event) {
            return event.type == SelectionRequest && event.xselectionrequest.target == atom("SAVE_TARGETS");
        });
        if (!request) {
            return;
        }
        const std::optional<QByteArray> targets = convert(atom("TARGETS"));
        for (qsizetype offset = 0; targets && offset + 4 <= targets->size(); offset += 4) {
            quint32 target = 0;
            std::memcpy(&target, targets->constData() + offset, 4);
            char* name = XGetAtomName(m_display, target);
            const QString type = QString::fromUtf8(name);
            XFree(name);
            if (type != u"TARGETS" && type != u"TIMESTAMP") {
                saved.insert(type, convert(target).value_or("(refused)"));
            }
        }
        const XSelectionRequestEvent& asked = request->xselectionrequest;
        XEvent reply{};
        reply.xselection = {
            SelectionNotify, 0,         True, m_display, asked.requestor, asked.selection, asked.target,
            asked.property,  asked.time};
        XSendEvent(m_display, reply.xselection.requestor, False, NoEventMask, &reply);
        XSync(m_display, False);
        answered = true;
    }

    Display* m_display = nullptr;
    Window m_window = 0;
    std::thread m_thread;
};

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
    void copyWithXclip(const QByteArray& text)
    {
        const qint64 before = pasteboard.changeCount();
        ASSERT_TRUE(runTool(QStringLiteral("xclip"),
                            {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-i")},
                            text));
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

    X11DisplayConnection display;
    EventLoopClock clock;
    X11EventPump pump{display.get(), clock};
    X11Pasteboard pasteboard{pump};
    QProcess owner;
    QTemporaryDir files;
};

TEST_F(X11PasteboardTest, HistoryRecordsForeignCopiesButNotConcealedOnes)
{
    TestClock pollClock;
    MemoryDefaultsStore defaults;
    ClipboardHistoryService history(pasteboard, pollClock, defaults);
    history.start();
    // The poll reads another client's answers without blocking; the event loop brings them in.
    const auto pollUntil = [&](qsizetype size, std::chrono::milliseconds guard = 5s) {
        pollClock.advance(ClipboardHistoryService::pollInterval);
        return spinUntil([&] { return history.items().size() == size; }, guard);
    };

    copyWithXclip(QStringLiteral("copied by xclip \u2713").toUtf8());
    ASSERT_TRUE(pollUntil(1));
    EXPECT_EQ(history.items().first().text, QStringLiteral("copied by xclip \u2713"));

    ownWithQt({{QStringLiteral("text"), "hunter2 password"},
               {QStringLiteral("x-kde-passwordManagerHint"), "secret"}});
    EXPECT_EQ(AwaitTask::run(pasteboard.string()), QStringLiteral("hunter2 password"));
    EXPECT_FALSE(pollUntil(2, 300ms)) << "a password manager's copy is skipped";

    // The same text copied plainly afterwards is history.
    copyWithXclip("hunter2 password");
    ASSERT_TRUE(pollUntil(2));
    EXPECT_EQ(history.items().first().text, QStringLiteral("hunter2 password"));

    // A text larger than one X request arrives incrementally and is stored whole.
    const QByteArray huge = QByteArray("0123456789abcdef\n").repeated(300000);
    copyWithXclip(huge);
    ASSERT_TRUE(pollUntil(3));
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
    const PasteboardSnapshot snapshot = AwaitTask::run(pasteboard.snapshot());
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
    EXPECT_EQ(clipboardBytes(), QByteArray("transient"));
    pasteboard.restore(snapshot);
    ASSERT_TRUE(pasteboard.ownsClipboard());

    // An independent client reads every type back from us while our event loop runs.
    const std::optional<QByteArray> targets = clipboardBytes(QStringLiteral("TARGETS"));
    ASSERT_TRUE(targets);
    for (const SavedPasteboardValue& value : snapshot.items.first().values) {
        EXPECT_TRUE(targets->contains(value.type.toUtf8())) << value.type.toStdString();
        EXPECT_EQ(clipboardBytes(value.type), value.data) << value.type.toStdString();
    }
    EXPECT_EQ(AwaitTask::run(pasteboard.snapshot()), snapshot);
}

TEST_F(X11PasteboardTest, ChangeCountFollowsEveryOwnershipChange)
{
    qint64 count = pasteboard.changeCount();
    pasteboard.writeString(QStringLiteral("ours"));
    EXPECT_GT(pasteboard.changeCount(), count) << "our own write counts at once";
    EXPECT_EQ(AwaitTask::run(pasteboard.string()), QStringLiteral("ours"));

    count = pasteboard.changeCount();
    copyWithXclip("theirs");
    EXPECT_FALSE(pasteboard.ownsClipboard());
    EXPECT_EQ(AwaitTask::run(pasteboard.string()), QStringLiteral("theirs"));
    EXPECT_EQ(pasteboard.changeCount(), count + 1);

    pasteboard.clear();
    EXPECT_EQ(pasteboard.changeCount(), count + 2);
    EXPECT_FALSE(AwaitTask::run(pasteboard.types()));
    EXPECT_FALSE(AwaitTask::run(pasteboard.string()));

    // An empty snapshot leaves the clipboard empty; an empty item still owns it with no types.
    pasteboard.restore(PasteboardSnapshot{{SavedPasteboardItem{}}});
    EXPECT_EQ(AwaitTask::run(pasteboard.types()), QStringList());
    pasteboard.restore(PasteboardSnapshot{});
    EXPECT_FALSE(AwaitTask::run(pasteboard.types()));
}

TEST_F(X11PasteboardTest, LatinOneTargetOnlyForTextLatinOneCanHold)
{
    pasteboard.writeString(QStringLiteral("caf\u00e9 cr\u00e8me"));
    EXPECT_EQ(clipboardBytes(QStringLiteral("STRING")), QByteArray("caf\xe9 cr\xe8me"));
    EXPECT_EQ(clipboardBytes(), QStringLiteral("caf\u00e9 cr\u00e8me").toUtf8());

    // Cyrillic would come out of STRING as question marks: the target is not offered at all.
    const QString cyrillic = QStringLiteral("\u041f\u0440\u0438\u0432\u0435\u0442, \u043c\u0438\u0440");
    pasteboard.writeString(cyrillic);
    const std::optional<QByteArray> targets = clipboardBytes(QStringLiteral("TARGETS"));
    ASSERT_TRUE(targets);
    EXPECT_FALSE(targets->split('\n').contains("STRING")) << targets->toStdString();
    EXPECT_FALSE(clipboardBytes(QStringLiteral("STRING")));
    EXPECT_EQ(clipboardBytes(), cyrillic.toUtf8());
}

TEST_F(X11PasteboardTest, ContentsOwnedAtExitGoToTheClipboardManager)
{
    const QString text = QStringLiteral("kept after exit \u2713");
    ClipboardManagerStandIn manager;
    {
        X11Pasteboard leaving(pump);
        leaving.writeString(text);
    }
    manager.finish();
    EXPECT_TRUE(manager.answered);
    EXPECT_EQ(manager.saved.value(QStringLiteral("UTF8_STRING")), text.toUtf8());
    EXPECT_EQ(manager.saved.value(QStringLiteral("text/plain;charset=utf-8")), text.toUtf8());
    EXPECT_EQ(manager.saved.size(), 2) << QStringList(manager.saved.keys()).join(u' ').toStdString();
}

} // namespace
