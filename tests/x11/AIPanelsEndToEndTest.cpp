#include "EventLoopWait.h"
#include "PrivateAccessibilityBusTest.h"
#include "ResidentAppProcess.h"
#include "ScriptedHttpServer.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQueue>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// The real program with its AI panels against a chat-like text field, both on a private accessibility bus:
// the program needs it to find the chat's message box, and the test reads the panels through it as a
// screen reader would.
class AIPanelsEndToEndTest : public PrivateAccessibilityBusTest {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(keyboard.isConnected()) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
        ASSERT_TRUE(busIsReady());
        ASSERT_TRUE(keyboard.useKeymap(QStringLiteral("us,ru")));
        app.setSetting(QStringLiteral("mivora.backend.baseURL"), backend.baseUrl());
        app.setSetting(QStringLiteral("mivora.backend.token"), QStringLiteral("e2e-token"));
        ASSERT_TRUE(app.start());
        ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
        ASSERT_TRUE(field.start(QStringLiteral("MivoraAIChat"), QStringLiteral("Chat"), message));
        ASSERT_TRUE(field.waitForFocus());
        ASSERT_TRUE(field.select(0, int(message.size())));
        ASSERT_TRUE(spinUntil([&] { return field.selection() == message; }, 10s));
        QGuiApplication::clipboard()->setText(userClipboard);
        ASSERT_TRUE(spinUntil([&] { return clipboardBytes() == userClipboard.toUtf8(); }, 5s));
    }

    void answer(const QString& result)
    {
        backend.enqueue(ScriptedHttpServer::Reply::json(
            200, QJsonDocument(QJsonObject{{"result", result}}).toJson(QJsonDocument::Compact)));
    }

    // Holds the chord for a moment as a person does, then lets go of the letter first.
    void holdChord(const QStringList& modifiers, const QString& letter)
    {
        for (const QString& modifier : modifiers) {
            keyboard.press(modifier);
            pauseFor(40ms);
        }
        keyboard.press(letter);
        pauseFor(300ms);
        keyboard.release(letter);
        for (const QString& modifier : modifiers) {
            keyboard.release(modifier);
        }
    }

    // The first element of the program whose name or value is the text, searched breadth first.
    AccessibilityElement find(const QString& wanted)
    {
        QQueue<AccessibilityElement> pending;
        pending.enqueue(tree->applicationElement(qint32(app.processId())));
        for (int seen = 0; !pending.isEmpty() && seen < 3000; ++seen) {
            const AccessibilityElement element = pending.dequeue();
            if (!element) {
                continue;
            }
            if (text(element, QStringLiteral("AXTitle")) == wanted ||
                text(element, QStringLiteral("AXValue")) == wanted) {
                return element;
            }
            const auto children = tree->attribute(element, QStringLiteral("AXChildren"));
            if (children && std::holds_alternative<QList<AccessibilityElement>>(*children)) {
                for (const AccessibilityElement& child : std::get<QList<AccessibilityElement>>(*children)) {
                    pending.enqueue(child);
                }
            }
        }
        return {};
    }

    bool shows(const QString& wanted)
    {
        return spinUntil([&] { return bool(find(wanted)); }, 15s);
    }

    bool press(const QString& buttonName)
    {
        const AccessibilityElement button = find(buttonName);
        return button && tree->performAction(button, QStringLiteral("AXPress"));
    }

    const QString message = QStringLiteral("Are you coming tonight?");
    const QString userClipboard = QStringLiteral("what the user copied");
    ScriptedHttpServer backend;
    X11TestClient keyboard;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess field;
};

// The reply chord of the first style (Command+Alt+1, Super here) drafts a reply to the selected message;
// "Translate" replaces it, and "Paste reply" puts it into the chat's own box with the clipboard given back.
TEST_F(AIPanelsEndToEndTest, AReplyIsDraftedTranslatedAndPastedIntoTheChat)
{
    answer(QStringLiteral("Yes, I will be there!"));
    holdChord({QStringLiteral("Super_L"), QStringLiteral("Alt_L")}, QStringLiteral("1"));
    ASSERT_TRUE(shows(QStringLiteral("Yes, I will be there!"))) << app.standardError().toStdString();
    EXPECT_TRUE(shows(QStringLiteral("AI Reply")));
    ASSERT_EQ(backend.requests().size(), 1);
    EXPECT_TRUE(backend.requests()[0].body.contains("Are you coming tonight?"));

    answer(QStringLiteral("Ja, ich komme!"));
    ASSERT_TRUE(press(QStringLiteral("Translate reply")));
    ASSERT_TRUE(shows(QStringLiteral("Ja, ich komme!"))) << app.standardError().toStdString();

    ASSERT_TRUE(press(QStringLiteral("Paste reply")));
    EXPECT_TRUE(spinUntil([&] { return field.text().value_or(QString()).contains(u"Ja, ich komme!"); }, 15s))
        << field.text().value_or(QString()).toStdString() << app.standardError().toStdString();
    EXPECT_TRUE(spinUntil([&] { return clipboardBytes() == userClipboard.toUtf8(); }, 10s));
}

// Alt+R reads the selection without changing it and shows it beside its translation.
TEST_F(AIPanelsEndToEndTest, TranslationPreviewShowsTheOriginalBesideTheTranslation)
{
    answer(QStringLiteral("Kommst du heute Abend?"));
    holdChord({QStringLiteral("Alt_L")}, QStringLiteral("r"));
    EXPECT_TRUE(shows(QStringLiteral("Kommst du heute Abend?"))) << app.standardError().toStdString();
    EXPECT_TRUE(shows(message));
    EXPECT_EQ(field.text(), message);
    EXPECT_EQ(field.selection(), message);
}

} // namespace
