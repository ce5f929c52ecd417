#include "ResidentAppProcess.h"
#include "ScriptedHttpServer.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"
#include "platform/x11/X11ModifierKeyState.h"

#include <QClipboard>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

const QString fieldClass = QStringLiteral("MivoraE2EField");
const QByteArray customType = "application/x-mivora-e2e";

// What the user had copied before pressing a hotkey: several types, non-Latin text, surrounding blanks.
const QByteArray userText = "  \xD0\x81\xD0\xB6\xD0\xB8\xD0\xBA \xC2\xB7 clipboard \xE2\x9C\x93\n";
const QByteArray userHtml = "<b>\xD0\x81\xD0\xB6\xD0\xB8\xD0\xBA</b>";
const QByteArray userCustom = QByteArray("\x00\x01\xFFraw", 6);

class ResidentAppEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(keyboard.isConnected()) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
        // Two groups, so the layout switch after a fix has somewhere to go; this also puts back the first.
        useKeymap(QStringLiteral("us,ru"));
    }

    void useKeymap(const QString& layouts) { ASSERT_TRUE(keyboard.useKeymap(layouts)); }

    // Shows the field with the text, focused and wholly selected, as the user leaves it before a hotkey.
    void showSelectedField(const QString& text)
    {
        ASSERT_TRUE(field.start(fieldClass, QStringLiteral("End-to-end field"), text));
        ASSERT_TRUE(field.waitForFocus());
        selectWholeField(text);
    }

    void selectWholeField(const QString& text)
    {
        ASSERT_TRUE(field.setText(text));
        // Not Control+A: with no Latin group, a toolkit that matches shortcuts by symbol ignores it.
        ASSERT_TRUE(field.select(0, int(text.size())));
        ASSERT_TRUE(spinUntil([&] { return field.selection() == text; }, 10s));
    }

    enum class Release { letterFirst, modifierFirst };
    struct Hold {
        std::chrono::milliseconds duration;
        Release order;
    };

    // Holds the chord as a person does: the modifier, a moment later the letter, both kept down for the
    // hold and then let go in the given order. Whether the server still had the modifier down at the end
    // of the hold, when the hotkey's work was already done by then (nullopt when it was not).
    std::optional<bool> holdChord(const QString& modifier, const QString& letter, Hold hold,
                                  const QString& doneText)
    {
        keyboard.press(modifier);
        pauseFor(50ms);
        keyboard.press(letter);
        pauseFor(hold.duration);
        std::optional<bool> modifierStillDown;
        if (field.text() == doneText) {
            modifierStillDown = keyboard.isDown(modifier);
        }
        const QStringList order = hold.order == Release::letterFirst ? QStringList{letter, modifier}
                                                                     : QStringList{modifier, letter};
        for (const QString& key : order) {
            keyboard.release(key);
        }
        return modifierStillDown;
    }

    // Once the user has let go, no modifier may stay down: neither one the app pressed for its shortcuts
    // nor one it gave back after the user's release.
    bool modifiersClear()
    {
        X11ModifierKeyState modifiers(keyboard.display());
        return spinUntil([&] { return !modifiers.isAnyModifierHeld(); }, 2s);
    }

    static std::string describe(Hold hold)
    {
        return std::to_string(hold.duration.count()) + " ms, " +
               (hold.order == Release::letterFirst ? "letter" : "modifier") + " released first";
    }

    // Alt+A on the text typed in the wrong layout, held each way in turn.
    void fixHeldChords(const QList<Hold>& holds)
    {
        ASSERT_TRUE(app.start());
        ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
        showSelectedField(QStringLiteral("ghbdtn"));
        copyAsTheUser();
        for (const Hold& hold : holds) {
            SCOPED_TRACE(describe(hold));
            selectWholeField(QStringLiteral("ghbdtn"));

            const std::optional<bool> altStillDown =
                holdChord(QStringLiteral("Alt_L"), QStringLiteral("a"), hold, QStringLiteral("привет"));

            EXPECT_TRUE(waitForFieldText(QStringLiteral("привет")))
                << field.text().value_or(QString()).toStdString();
            EXPECT_NE(altStillDown, std::optional(false)) << "the held Alt was not given back";
            expectUserClipboardBack();
            EXPECT_TRUE(modifiersClear());
        }
        EXPECT_TRUE(app.isRunning());
        EXPECT_FALSE(app.standardError().contains(QStringLiteral("mivora.status: ")))
            << app.standardError().toStdString();
    }

    // This process owns the clipboard from here on and serves it as long as the event loop runs; what the
    // server hands out for each type is noted, as the bytes the app must give back.
    void copyAsTheUser()
    {
        auto* data = new QMimeData;
        data->setText(QString::fromUtf8(userText));
        data->setHtml(QString::fromUtf8(userHtml));
        data->setData(QString::fromLatin1(customType), userCustom);
        QGuiApplication::clipboard()->setMimeData(data);
        for (const QByteArray& type : {QByteArray("UTF8_STRING"), QByteArray("text/html"), customType}) {
            const std::optional<QByteArray> bytes = clipboardBytes(type);
            ASSERT_TRUE(bytes) << type.toStdString();
            userClipboard.insert(type, *bytes);
        }
        ASSERT_EQ(userClipboard.value("UTF8_STRING"), userText);
    }

    // Polls, since the app puts the clipboard back only after its paste has had time to land.
    void expectUserClipboardBack()
    {
        EXPECT_TRUE(spinUntil([&] { return clipboardBytes() == userText; }, 10s))
            << "clipboard holds " << clipboardBytes().value_or("nothing").toStdString();
        for (auto it = userClipboard.cbegin(); it != userClipboard.cend(); ++it) {
            EXPECT_EQ(clipboardBytes(it.key()), it.value()) << it.key().toStdString();
        }
    }

    void useBackend(const ScriptedHttpServer& backend)
    {
        app.setSetting(QStringLiteral("mivora.backend.baseURL"), backend.baseUrl());
        app.setSetting(QStringLiteral("mivora.backend.token"), QStringLiteral("e2e-token"));
    }

    bool waitForFieldText(const QString& text)
    {
        return spinUntil([&] { return field.text() == text; }, 10s);
    }

    X11TestClient keyboard;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess field;
    QHash<QByteArray, QByteArray> userClipboard;
};

// A chord held past the copy: the copy and the paste must reach the field without the held Alt, and the
// Alt must be down again for as long as the user holds it.
TEST_F(ResidentAppEndToEndTest, LayoutHotkeyHeldForAMomentFixesTheSelectionAndGivesTheClipboardBack)
{
    fixHeldChords({{400ms, Release::letterFirst},
                   {400ms, Release::modifierFirst},
                   {1000ms, Release::letterFirst},
                   {1000ms, Release::modifierFirst}});
}

// No Latin group at all: the chord is the key where A sits, and so are the copy and the paste.
TEST_F(ResidentAppEndToEndTest, LayoutHotkeyWorksUnderACyrillicOnlyKeymap)
{
    useKeymap(QStringLiteral("ru"));
    fixHeldChords({{400ms, Release::modifierFirst}, {1000ms, Release::letterFirst}});
}

// Standard timing waits for the modifiers to clear, but not past 560 ms; a longer hold must not end in
// the copy arriving as Control+Alt+C.
TEST_F(ResidentAppEndToEndTest, StyleHotkeyHeldForAMomentRewritesTheSelectionThroughTheBackend)
{
    ScriptedHttpServer backend;
    backend.enqueue(ScriptedHttpServer::Reply::json(200, R"({"result":"Hello friend!"})"));
    backend.enqueue(ScriptedHttpServer::Reply::json(200, R"({"result":"Hello again!"})"));
    useBackend(backend);
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    showSelectedField(QStringLiteral("hey you, send me the file"));
    copyAsTheUser();

    holdChord(QStringLiteral("Alt_L"), QStringLiteral("2"), {1000ms, Release::letterFirst},
              QStringLiteral("Hello friend!"));

    EXPECT_TRUE(waitForFieldText(QStringLiteral("Hello friend!")))
        << field.text().value_or(QString()).toStdString() << app.standardError().toStdString();
    // The wire format is the backend client's business; here the selection must reach the backend named in
    // the settings, with the token from there, for the style on Alt+2.
    ASSERT_EQ(backend.requests().size(), 1);
    EXPECT_EQ(backend.requests().first().headers.value("authorization"), "Bearer e2e-token");
    const QJsonObject body = QJsonDocument::fromJson(backend.requests().first().body).object();
    EXPECT_EQ(body.value(QStringLiteral("text")).toString(), QStringLiteral("hey you, send me the file"));
    EXPECT_EQ(body.value(QStringLiteral("writingStyle")).toString(), QStringLiteral("Friendly"));
    expectUserClipboardBack();
    EXPECT_TRUE(modifiersClear());

    selectWholeField(QStringLiteral("see you"));
    holdChord(QStringLiteral("Alt_L"), QStringLiteral("2"), {400ms, Release::modifierFirst},
              QStringLiteral("Hello again!"));

    EXPECT_TRUE(waitForFieldText(QStringLiteral("Hello again!")))
        << field.text().value_or(QString()).toStdString() << app.standardError().toStdString();
    ASSERT_EQ(backend.requests().size(), 2);
    EXPECT_EQ(QJsonDocument::fromJson(backend.requests().at(1).body).object().value(QStringLiteral("text")),
              QStringLiteral("see you"));
    expectUserClipboardBack();
    EXPECT_TRUE(modifiersClear());
}

// Twenty layout-fix and style chords within a second under the Cyrillic group, each held as briefly as a
// quick person holds it, so their runs overlap. Every style run that reached the backend pastes, every run
// ends (a read that meets a chord still held may end in "No selected text.", which is its status), the
// user's clipboard comes back whole, and a style chord after them still works.
TEST_F(ResidentAppEndToEndTest, MashedChordsAllEndAndGiveTheClipboardBack)
{
    useKeymap(QStringLiteral("ru,us"));
    ScriptedHttpServer backend;
    backend.enqueue(ScriptedHttpServer::Reply::json(200, R"({"result":"ok"})"));
    useBackend(backend);
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    showSelectedField(QStringLiteral("ghbdtn"));
    copyAsTheUser();

    for (int chord = 0; chord < 20; ++chord) {
        const QString letter = chord % 2 == 0 ? QStringLiteral("a") : QStringLiteral("2");
        keyboard.press(QStringLiteral("Alt_L"));
        keyboard.press(letter);
        pauseFor(std::chrono::milliseconds(30 + chord % 4 * 10));
        keyboard.release(letter);
        keyboard.release(QStringLiteral("Alt_L"));
    }
    // Each style read selects the whole field first, so the pastes of "ok" that come last add up; the
    // overlay goes once the last run's "Pasted" has had its time.
    EXPECT_TRUE(spinUntil(
        [&] {
            return field.text().value_or(QString()).count(u"ok") == backend.requests().size() &&
                   !windowShown(QStringLiteral("MivoraAI status"));
        },
        60s))
        << backend.requests().size() << " asked, " << field.text().value_or(QString()).toStdString();

    selectWholeField(QStringLiteral("после"));
    holdChord(QStringLiteral("Alt_L"), QStringLiteral("2"), {60ms, Release::letterFirst}, {});
    EXPECT_TRUE(waitForFieldText(QStringLiteral("ok"))) << field.text().value_or(QString()).toStdString();
    expectUserClipboardBack();
    EXPECT_TRUE(spinUntil([] { return !windowShown(QStringLiteral("MivoraAI status")); }));
    EXPECT_TRUE(modifiersClear());
}

// Distinctive text down every road the program has for it: it may rest in the history and notes stores
// and nowhere else, neither in the program's output and log nor in any other file of its home; copies a
// password manager marks go nowhere at all.
TEST_F(ResidentAppEndToEndTest, SelectedAndCopiedTextStaysInTheStoresMeantForIt)
{
    const QString token = QString::number(QRandomGenerator::global()->bounded(100000000, 999999999));
    const QString secret = QStringLiteral("SECRET-") + token;
    const QString answer = QStringLiteral("ANSWER-") + token;
    const QString concealed = QStringLiteral("CONCEALED-%1").arg(token.toLongLong() + 1);
    ScriptedHttpServer backend;
    backend.enqueue(ScriptedHttpServer::Reply::json(200, R"({"result":")" + answer.toUtf8() + R"("})"));
    useBackend(backend);
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    showSelectedField(secret);

    // The layout fix, a style rewrite and the translation style, each over the selected secret.
    holdChord(QStringLiteral("Alt_L"), QStringLiteral("a"), {60ms, Release::letterFirst}, {});
    EXPECT_TRUE(spinUntil([&] { return field.text() != secret; }, 10s));
    for (const QString& letter : {QStringLiteral("2"), QStringLiteral("t")}) {
        selectWholeField(secret);
        holdChord(QStringLiteral("Alt_L"), letter, {60ms, Release::letterFirst}, {});
        EXPECT_TRUE(waitForFieldText(answer)) << letter.toStdString();
    }

    // Two password-manager copies, each left a poll's time; then a copy the history takes and the panel
    // pastes.
    for (const QString& marker :
         {QStringLiteral("x-kde-passwordManagerHint"), QStringLiteral("org.nspasteboard.ConcealedType")}) {
        auto* data = new QMimeData;
        data->setText(concealed);
        data->setData(marker, "secret");
        QGuiApplication::clipboard()->setMimeData(data);
        pauseFor(1500ms);
    }
    QGuiApplication::clipboard()->setText(secret + QStringLiteral(" copied"));
    ASSERT_TRUE(spinUntil([&] { return app.storedHistory().contains(" copied"); }))
        << "the history never took the copy";
    selectWholeField(QStringLiteral("x"));
    holdChord(QStringLiteral("Alt_L"), QStringLiteral("v"), {60ms, Release::letterFirst}, {});
    ASSERT_TRUE(spinUntil([] { return windowShown(QStringLiteral("Clipboard")); }, 10s));
    keyboard.type({QStringLiteral("Return")});
    EXPECT_TRUE(waitForFieldText(secret + QStringLiteral(" copied")));

    // The translation preview and a reply draft, each shown in its panel.
    for (const QStringList& chord :
         {QStringList{QStringLiteral("Alt_L"), QStringLiteral("r")},
          QStringList{QStringLiteral("Super_L"), QStringLiteral("Alt_L"), QStringLiteral("1")}}) {
        ASSERT_TRUE(
            runTool(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), QStringLiteral("--sync"),
                                                field.window().value_or(QString())}));
        selectWholeField(secret);
        const qsizetype asked = backend.requests().size();
        keyboard.type(chord);
        EXPECT_TRUE(spinUntil([&] { return backend.requests().size() > asked; }, 10s))
            << chord.join(u'+').toStdString();
    }
    // Ended as the session ends it, with its panels up: whatever it writes on the way out is looked at too.
    ASSERT_EQ(app.terminate(), 0);

    EXPECT_FALSE(app.standardOutput().contains(token)) << app.standardOutput().toStdString();
    EXPECT_FALSE(app.standardError().contains(token)) << app.standardError().toStdString();
    bool historyKept = false;
    QDirIterator files(app.directory(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        const QByteArray contents = file.readAll();
        EXPECT_FALSE(contents.contains(concealed.toUtf8())) << file.fileName().toStdString();
        if (file.fileName().contains(u"clipboard-notes")) {
            continue;
        }
        if (file.fileName().endsWith(u"mivora.clipboardItems.native.dat")) {
            historyKept = contents.contains(secret.toUtf8() + " copied");
            continue;
        }
        for (const QByteArray& line : contents.split('\n')) {
            if (!line.startsWith("mivora.clipboardNotes.fallback=")) {
                EXPECT_FALSE(line.contains(token.toUtf8()))
                    << file.fileName().toStdString() << ": " << line.toStdString();
            }
        }
    }
    EXPECT_TRUE(historyKept) << "the history store holds the copy";
}

TEST_F(ResidentAppEndToEndTest, SecondStartBringsTheRunningProgramsWindowForward)
{
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    const auto mainWindowShown = [] { return windowShown(QStringLiteral("MivoraAI")); };
    EXPECT_FALSE(mainWindowShown()) << "the main window stays away when the settings say so";

    // A second start hands over to the first and leaves quietly, as clicking a running program's icon does.
    QProcess second;
    second.setProcessEnvironment(app.environment());
    second.start(QStringLiteral(MIVORA_BINARY), {});
    ASSERT_TRUE(spinUntil([&] { return second.state() == QProcess::NotRunning; }, 10s));
    EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(second.readAllStandardError().isEmpty());
    EXPECT_TRUE(spinUntil(mainWindowShown, 5s));

    EXPECT_TRUE(app.isRunning());
    EXPECT_EQ(app.terminate(), 0);
}

} // namespace

TEST_F(ResidentAppEndToEndTest, ASelectionWhoseCopyDoesNothingIsFixedFromPrimary)
{
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    // Control+C copies nothing here, as in a terminal: only the selection the X server keeps gives the text.
    field.ignoreCopy();
    ASSERT_TRUE(field.start(fieldClass, QStringLiteral("End-to-end field"), QStringLiteral("ghbdtn")));
    ASSERT_TRUE(field.waitForFocus());
    copyAsTheUser();
    // Selected as a person does, from the end of the line with Shift+Home: the field now owns PRIMARY.
    keyboard.type({QStringLiteral("End")});
    keyboard.type({QStringLiteral("Shift_L"), QStringLiteral("Home")});
    ASSERT_TRUE(spinUntil([&] { return field.selection() == QStringLiteral("ghbdtn"); }));

    holdChord(QStringLiteral("Alt_L"), QStringLiteral("a"), {400ms, Release::letterFirst},
              QStringLiteral("привет"));

    EXPECT_TRUE(waitForFieldText(QStringLiteral("привет")))
        << field.text().value_or(QString()).toStdString() << app.standardError().toStdString();
    expectUserClipboardBack();
    EXPECT_TRUE(modifiersClear());
}
