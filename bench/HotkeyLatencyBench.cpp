#include "Percentile.h"
#include "ResidentAppProcess.h"
#include "ScriptedHttpServer.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"
#include "core/PasteboardTiming.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QTextStream>
#include <algorithm>
#include <cmath>

using namespace std::chrono_literals;

namespace {

// Sleeps of the clipboard route that no machine can beat, in milliseconds. The app holds every synthetic
// shortcut down for shortcutHold between its press and its release; the target acts on the press.
constexpr int shortcutHold = 20;

struct Floor {
    int toReplaced = 0;
    int toRestored = 0;
    QString derivation;
};

// The layout fix under quick timing: with no accessibility route on X11 it copies (polling the clipboard,
// no fixed wait), then pastes and restores after the restore delay.
Floor layoutFloor()
{
    const PasteboardTiming t = PasteboardTiming::quickTiming();
    Floor floor;
    floor.toReplaced = t.activationDelay + shortcutHold + t.activationDelay + t.pasteDelay;
    floor.toRestored = floor.toReplaced + shortcutHold + t.restoreDelay;
    floor.derivation = QStringLiteral("read: activation %1 + C hold %2 + copied-text poll (no fixed wait); "
                                      "paste: activation %1 + paste delay %3 -> V pressed; then V hold %2 + "
                                      "restore delay %4")
                           .arg(t.activationDelay)
                           .arg(shortcutHold)
                           .arg(t.pasteDelay)
                           .arg(t.restoreDelay);
    return floor;
}

// A style rewrite under standard timing, with select-all before the copy (the default), the first copy
// attempt finding the text and a backend that answers at once.
Floor styleFloor()
{
    const PasteboardTiming t = PasteboardTiming::standardTiming();
    Floor floor;
    floor.toReplaced = t.activationDelay + shortcutHold + t.selectAllDelay + shortcutHold + t.copyDelay +
                       t.activationDelay + t.pasteDelay;
    floor.toRestored = floor.toReplaced + shortcutHold + t.restoreDelay;
    floor.derivation = QStringLiteral("read: activation %1 + A hold %2 + select-all delay %3 + C hold %2 + "
                                      "copy delay %4 (attempt 0); paste: activation %1 + paste delay %5 -> V "
                                      "pressed; then V hold %2 + restore delay %6")
                           .arg(t.activationDelay)
                           .arg(shortcutHold)
                           .arg(t.selectAllDelay)
                           .arg(t.copyDelay)
                           .arg(t.pasteDelay)
                           .arg(t.restoreDelay);
    return floor;
}

const QByteArray userClipboard = "user clipboard \xE2\x9C\x93";

std::optional<QByteArray> clipboardText()
{
    return runTool(QStringLiteral("xclip"),
                   {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-o"),
                    QStringLiteral("-t"), QStringLiteral("UTF8_STRING")});
}

struct Scenario {
    QString name;
    QStringList chord;
    QString input;
    QString output;
    Floor floor;
};

class Driver {
public:
    bool start(ScriptedHttpServer& backend)
    {
        m_app.setSetting(QStringLiteral("mivora.backend.baseURL"), backend.baseUrl());
        m_app.setSetting(QStringLiteral("mivora.backend.token"), QStringLiteral("bench"));
        // Every press starts from the same keyboard group.
        m_app.setSetting(QStringLiteral("mivora.layoutAutoSwitch"), false);
        if (!m_keyboard.isConnected() || !m_app.start() || !m_app.waitForHotkeys() ||
            !m_field.start(QStringLiteral("MivoraBenchField"), QStringLiteral("Bench field")) ||
            !m_field.waitForFocus()) {
            QTextStream(stderr) << "could not start the app and the field\n" << m_app.standardError();
            return false;
        }
        QGuiApplication::clipboard()->setText(QString::fromUtf8(userClipboard));
        return true;
    }

    bool measure(const Scenario& scenario, int presses)
    {
        QList<double> replaced;
        QList<double> restored;
        for (int press = 0; press < presses; ++press) {
            if (!prepare(scenario.input)) {
                QTextStream(stderr) << scenario.name << ": could not select the input\n";
                return false;
            }
            QElapsedTimer timer;
            timer.start();
            m_keyboard.type(scenario.chord);
            if (!spinUntil([&] { return m_field.text() == scenario.output; }, 10s)) {
                QTextStream(stderr) << scenario.name << ": no replacement; field holds "
                                    << m_field.text().value_or(QString()) << '\n'
                                    << m_app.standardError();
                return false;
            }
            replaced.append(double(timer.nsecsElapsed()) / 1e6);
            if (!spinUntil([] { return clipboardText() == userClipboard; }, 10s)) {
                QTextStream(stderr) << scenario.name << ": the clipboard did not come back\n";
                return false;
            }
            restored.append(double(timer.nsecsElapsed()) / 1e6);
        }
        QTextStream out(stdout);
        out << scenario.name << ", " << presses << " presses\n"
            << QStringLiteral("  press -> text replaced:     p50 %1 ms  p95 %2 ms  (floor %3 ms)\n")
                   .arg(percentile(replaced, 0.5), 0, 'f', 1)
                   .arg(percentile(replaced, 0.95), 0, 'f', 1)
                   .arg(scenario.floor.toReplaced)
            << QStringLiteral("  press -> clipboard back:    p50 %1 ms  p95 %2 ms  (floor %3 ms)\n")
                   .arg(percentile(restored, 0.5), 0, 'f', 1)
                   .arg(percentile(restored, 0.95), 0, 'f', 1)
                   .arg(scenario.floor.toRestored)
            << "  floor = " << scenario.floor.derivation << "\n";
        return true;
    }

private:
    // The input wholly selected in the focused field, and the app done with the previous press.
    bool prepare(const QString& input)
    {
        if (!m_field.setText(input)) {
            return false;
        }
        m_keyboard.type({QStringLiteral("Control_L"), QStringLiteral("a")});
        return spinUntil([&] { return m_field.selection() == input; }, 10s) &&
               spinUntil([] { return clipboardText() == userClipboard; }, 10s);
    }

    X11TestClient m_keyboard;
    ResidentAppProcess m_app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess m_field;
};

} // namespace

// Hotkey press to replaced text on the real resident app, with a real text field as the target and a
// loopback backend that answers at once. Needs a private X server with a window manager
// (tests/x11/with-xvfb.sh). Usage: mivora_hotkey_latency_bench [PRESSES], 30 by default.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int presses = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 30;
    if (!runTool(QStringLiteral("setxkbmap"), {QStringLiteral("-layout"), QStringLiteral("us,ru")})) {
        QTextStream(stderr) << "setxkbmap failed\n";
        return 1;
    }
    ScriptedHttpServer backend;
    backend.enqueue(ScriptedHttpServer::Reply::json(200, R"({"result":"Hello friend!"})"));
    Driver driver;
    if (!driver.start(backend)) {
        return 1;
    }
    QTextStream(stdout) << "Figures include up to ~5 ms of polling granularity on the field's text.\n";
    const Scenario layout{QStringLiteral("Layout fix (Alt+A, quick timing)"),
                          {QStringLiteral("Alt_L"), QStringLiteral("a")},
                          QStringLiteral("ghbdtn"),
                          QStringLiteral("привет"),
                          layoutFloor()};
    const Scenario style{QStringLiteral("Style rewrite \"friendly\" (Alt+2, standard timing)"),
                         {QStringLiteral("Alt_L"), QStringLiteral("2")},
                         QStringLiteral("hey you, send me the file"),
                         QStringLiteral("Hello friend!"),
                         styleFloor()};
    return driver.measure(layout, presses) && driver.measure(style, presses) ? 0 : 1;
}
