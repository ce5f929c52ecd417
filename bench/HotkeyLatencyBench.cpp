#include "AppBesideField.h"
#include "BenchMain.h"
#include "ClipboardRouteFloor.h"
#include "DesktopTools.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "SampleFigures.h"
#include "UserClipboard.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTextStream>

using namespace std::chrono_literals;

namespace {

struct Scenario {
    QString name;
    QStringList chord;
    QString input;
    QString output;
    ClipboardRouteFloor floor;
    // Selected from the keyboard (Shift+Home), so the field owns PRIMARY and the quiet read can take it;
    // otherwise selected by the field itself, which leaves PRIMARY alone and the copy route to run.
    bool keyboardSelection = false;
};

class Driver {
public:
    bool start()
    {
        m_desk.answerEveryRequestWith(QStringLiteral("Hello friend!"));
        // Every press starts from the same keyboard group.
        m_desk.app().setSetting(QStringLiteral("mivora.layoutAutoSwitch"), false);
        if (!useUsAndRuLayouts() || !m_desk.start()) {
            return false;
        }
        fillUserClipboard();
        QTextStream(stdout) << "Figures include up to ~5 ms of polling granularity on the field's text.\n";
        return true;
    }

    bool run(int presses)
    {
        const Scenario layout{QStringLiteral("Layout fix, copy route (Alt+A, quick timing)"),
                              {QStringLiteral("Alt_L"), QStringLiteral("a")},
                              QStringLiteral("ghbdtn"),
                              QStringLiteral("привет"),
                              ClipboardRouteFloor::readThenPaste(PasteboardTiming::quickTiming(), false)};
        // The floor is the copy route's; this road skips the copy and its sleeps.
        Scenario layoutFromPrimary = layout;
        layoutFromPrimary.name =
            QStringLiteral("Layout fix, selection read from PRIMARY (Alt+A, quick timing)");
        layoutFromPrimary.keyboardSelection = true;
        const Scenario style{QStringLiteral("Style rewrite \"friendly\" (Alt+2, standard timing)"),
                             {QStringLiteral("Alt_L"), QStringLiteral("2")},
                             QStringLiteral("hey you, send me the file"),
                             QStringLiteral("Hello friend!"),
                             ClipboardRouteFloor::readThenPaste(PasteboardTiming::standardTiming(), true)};
        // The copy route first: once the field owns PRIMARY, every later layout fix would read it.
        return measure(layout, presses) && measure(layoutFromPrimary, presses) && measure(style, presses);
    }

private:
    bool measure(const Scenario& scenario, int presses)
    {
        QList<double> replaced;
        QList<double> restored;
        for (int press = 0; press < presses; ++press) {
            if (!prepare(scenario.input, scenario.keyboardSelection)) {
                QTextStream(stderr) << scenario.name << ": could not select the input\n";
                return false;
            }
            QElapsedTimer timer;
            timer.start();
            m_desk.keyboard().type(scenario.chord);
            if (!spinUntil([&] { return m_desk.field().text() == scenario.output; }, 10s)) {
                QTextStream(stderr) << scenario.name << ": no replacement; field holds "
                                    << m_desk.field().text().value_or(QString()) << '\n'
                                    << m_desk.app().standardError();
                return false;
            }
            replaced.append(millisecondsSince(timer));
            if (!waitForUserClipboard()) {
                QTextStream(stderr) << scenario.name << ": the clipboard did not come back\n";
                return false;
            }
            restored.append(millisecondsSince(timer));
        }
        QTextStream out(stdout);
        out << scenario.name << ", " << presses << " presses\n"
            << "  press -> text replaced:     " << medianAndTail(replaced) << "  (floor "
            << scenario.floor.toPastePress() << " ms)\n"
            << "  press -> clipboard back:    " << medianAndTail(restored) << "  (floor "
            << scenario.floor.toRestored() << " ms)\n"
            << "  floor = " << scenario.floor.derivation() << "\n";
        return true;
    }

    // The input wholly selected in the focused field, and the app done with the previous press.
    bool prepare(const QString& input, bool keyboardSelection)
    {
        if (!keyboardSelection) {
            // WORKAROUND: the field may still own PRIMARY from an earlier selection, and then the app reads
            // it instead of copying; the bench owning PRIMARY keeps this road the copy route.
            QGuiApplication::clipboard()->setText(QStringLiteral("elsewhere"), QClipboard::Selection);
        }
        const bool selected =
            keyboardSelection ? m_desk.selectFromKeyboard(input) : m_desk.selectInField(input);
        return selected && waitForUserClipboard();
    }

    AppBesideField m_desk{QStringLiteral(MIVORA_BINARY)};
};

} // namespace

// Hotkey press to replaced text on the real resident app, with a real text field as the target and a
// loopback backend that answers at once. Needs a private X server with a window manager
// (tests/x11/with-xvfb.sh). Usage: mivora_hotkey_latency_bench [PRESSES], 30 by default.
int main(int argc, char** argv)
{
    return runBenchmark<Driver>(argc, argv, 30, 1);
}
