#include "Percentile.h"
#include "ResidentAppProcess.h"
#include "ScriptedHttpServer.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextStream>

using namespace std::chrono_literals;

namespace {

bool panelShown(const QString& title)
{
    const auto ids =
        runTool(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                            QStringLiteral("--name"), u'^' + title + u'$'});
    return ids && !ids->trimmed().isEmpty();
}

// Closes the panel the way the window manager's close does: the panel only hides.
bool closePanel(const QString& title)
{
    runTool(QStringLiteral("wmctrl"), {QStringLiteral("-c"), title});
    return spinUntil([&] { return !panelShown(title); }, 10s);
}

struct Route {
    QString name;
    QStringList chord;
    QString panelTitle;
};

class Driver {
public:
    bool start(ScriptedHttpServer& backend)
    {
        m_backend = &backend;
        m_app.setSetting(QStringLiteral("mivora.backend.baseURL"), backend.baseUrl());
        m_app.setSetting(QStringLiteral("mivora.backend.token"), QStringLiteral("bench"));
        m_app.setSetting(QStringLiteral("mivora.layoutAutoSwitch"), false);
        if (!m_keyboard.isConnected() || !m_app.start() || !m_app.waitForHotkeys() ||
            !m_field.start(QStringLiteral("MivoraBenchField"), QStringLiteral("Bench field")) ||
            !m_field.waitForFocus()) {
            QTextStream(stderr) << "could not start the app and the field\n" << m_app.standardError();
            return false;
        }
        return true;
    }

    // Press to panel on screen, the first show apart from the later ones; and press to the backend's
    // request, which the panel makes after its selection read.
    bool measure(const Route& route, int presses)
    {
        std::optional<double> first;
        QList<double> later;
        QList<double> asked;
        for (int press = 0; press < presses; ++press) {
            if (!selectMessage()) {
                QTextStream(stderr) << route.name << ": could not select the message\n";
                return false;
            }
            const qsizetype requestsBefore = m_backend->requests().size();
            QElapsedTimer timer;
            timer.start();
            m_keyboard.type(route.chord);
            std::optional<double> askedAt;
            if (!spinUntil(
                    [&] {
                        if (!askedAt && m_backend->requests().size() > requestsBefore) {
                            askedAt = double(timer.nsecsElapsed()) / 1e6;
                        }
                        return panelShown(route.panelTitle);
                    },
                    10s)) {
                QTextStream(stderr) << route.name << ": no panel\n" << m_app.standardError();
                return false;
            }
            const double shown = double(timer.nsecsElapsed()) / 1e6;
            (first ? later.append(shown) : void(first = shown));
            if (!spinUntil([&] { return m_backend->requests().size() > requestsBefore; }, 10s)) {
                QTextStream(stderr) << route.name << ": the backend was never asked\n";
                return false;
            }
            asked.append(askedAt.value_or(double(timer.nsecsElapsed()) / 1e6));
            // Let the answer land before the panel goes, so the next press finds it idle.
            pauseFor(200ms);
            if (!closePanel(route.panelTitle)) {
                QTextStream(stderr) << route.name << ": the panel did not close\n";
                return false;
            }
        }
        QTextStream(stdout)
            << route.name << ", " << presses << " presses\n"
            << QStringLiteral("  press -> panel shown, first show:  %1 ms\n").arg(*first, 0, 'f', 1)
            << QStringLiteral("  press -> panel shown, later shows: p50 %1 ms  p95 %2 ms\n")
                   .arg(percentile(later, 0.5), 0, 'f', 1)
                   .arg(percentile(later, 0.95), 0, 'f', 1)
            << QStringLiteral("  press -> backend asked:           p50 %1 ms  p95 %2 ms\n")
                   .arg(percentile(asked, 0.5), 0, 'f', 1)
                   .arg(percentile(asked, 0.95), 0, 'f', 1);
        return true;
    }

private:
    // Selected from the keyboard, so the field owns PRIMARY and the quiet read takes it.
    bool selectMessage()
    {
        const QString message = QStringLiteral("Are you coming tonight?");
        if (!m_field.setText(message)) {
            return false;
        }
        m_keyboard.type({QStringLiteral("End")});
        m_keyboard.type({QStringLiteral("Shift_L"), QStringLiteral("Home")});
        return spinUntil([&] { return m_field.selection() == message; }, 10s);
    }

    ScriptedHttpServer* m_backend = nullptr;
    X11TestClient m_keyboard;
    ResidentAppProcess m_app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess m_field;
};

} // namespace

// Hotkey press to the AI panels on screen on the real resident app, with a loopback backend that answers
// at once. Needs a private X server with a window manager (tests/x11/with-xvfb.sh). Figures include a few
// milliseconds of polling granularity (one xdotool run per poll). Usage: mivora_ai_panel_latency_bench
// [PRESSES], 20 by default.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int presses = argc > 1 ? std::max(2, QByteArray(argv[1]).toInt()) : 20;
    if (!runTool(QStringLiteral("setxkbmap"), {QStringLiteral("-layout"), QStringLiteral("us,ru")})) {
        QTextStream(stderr) << "setxkbmap failed\n";
        return 1;
    }
    ScriptedHttpServer backend;
    backend.enqueue(ScriptedHttpServer::Reply::json(200, R"({"result":"See you there!"})"));
    Driver driver;
    if (!driver.start(backend)) {
        return 1;
    }
    const Route reply{QStringLiteral("Reply (Super+Alt+1) -> assistant"),
                      {QStringLiteral("Super_L"), QStringLiteral("Alt_L"), QStringLiteral("1")},
                      QStringLiteral("AI assistant")};
    const Route preview{QStringLiteral("Translation preview (Alt+R)"),
                        {QStringLiteral("Alt_L"), QStringLiteral("r")},
                        QStringLiteral("Translation")};
    return driver.measure(reply, presses) && driver.measure(preview, presses) ? 0 : 1;
}
