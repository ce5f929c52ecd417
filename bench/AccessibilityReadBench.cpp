#include "BenchArguments.h"
#include "DesktopConnection.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "PrivateSessionBus.h"
#include "SampleFigures.h"
#include "TestFieldProcess.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "platform/x11/AtspiAccessibilityTree.h"
#include "platform/x11/X11ApplicationWorkspace.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QQueue>
#include <QTextStream>

using namespace std::chrono_literals;

namespace {

const QString fieldText = QStringLiteral("alpha beta gamma");
const QString selection = QStringLiteral("beta");

// The accessible elements of an application, counted by a full walk (outside the timings).
int countElements(AccessibilityTree& tree, const AccessibilityElement& application)
{
    QQueue<AccessibilityElement> queue;
    queue.enqueue(application);
    int count = 0;
    while (!queue.isEmpty()) {
        const AccessibilityElement element = queue.dequeue();
        ++count;
        const std::optional<AccessibilityValue> children =
            tree.attribute(element, QStringLiteral("AXChildren"));
        if (children && std::holds_alternative<QList<AccessibilityElement>>(*children)) {
            for (const AccessibilityElement& child : std::get<QList<AccessibilityElement>>(*children)) {
                queue.enqueue(child);
            }
        }
    }
    return count;
}

struct Row {
    QString name;
    QList<double> samples;
    int found = 0;
};

// The exchange's accessibility read of the remembered application's selection, as the reply hotkey and the
// selection trigger make it, timed call by call after one untimed call.
QString read(AccessibilityTree& tree, ApplicationWorkspace& workspace, const RunningApplication& target)
{
    FocusService focus(workspace, tree);
    AccessibilityTextReader reader(focus, workspace, tree);
    focus.remember(target);
    return reader.selectedText();
}

Row measure(const QString& name, const std::function<QString()>& operation, int iterations)
{
    Row row{name, {}, 0};
    for (int round = -1; round < iterations; ++round) {
        QElapsedTimer timer;
        timer.start();
        const QString text = operation();
        const double elapsed = millisecondsSince(timer);
        if (round >= 0) {
            row.samples.append(elapsed);
            row.found += text == selection ? 1 : 0;
        }
    }
    return row;
}

} // namespace

// selectedText() through AT-SPI on a window of about 2,000 accessible elements with the field last: once
// with the focus known from focus events (the tree existed before the field took the focus), once with it
// found by the bounded walk (a tree made after that, as on a toolkit without the Collection search). Starts
// its own session bus and turns accessibility on there. Needs a private X server with a window manager
// (tests/x11/with-xvfb.sh). Usage: mivora_accessibility_read_bench [ITERATIONS] [LABELS], 200 and 2000.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int iterations = countArgument(argc, argv, 1, 200, 1);
    const int labels = countArgument(argc, argv, 2, 2000, 1);
    QTextStream err(stderr);
    PrivateSessionBus bus;
    if (!bus.start()) {
        err << "no session bus: " << bus.failure() << '\n';
        return 1;
    }
    AtspiAccessibilityTree tracked;
    if (!tracked.isAvailable() || !tracked.setAttribute({}, QStringLiteral("AXManualAccessibility"), true)) {
        err << "the session bus did not start the accessibility bus launcher\n";
        return 1;
    }
    DesktopConnection desktop;
    if (!desktop.connection) {
        err << "needs an X server\n";
        return 1;
    }
    X11ApplicationWorkspace workspace(desktop.pump);

    // Accessibility is on before the field starts, so it needs no variable to expose its tree.
    pauseFor(300ms);
    TestFieldProcess field;
    field.addCrowd(labels);
    if (!field.start(QStringLiteral("MivoraCrowdedField"), QStringLiteral("Crowded window"), fieldText) ||
        !field.waitForFocus() || !field.select(6, 4)) {
        err << "could not start the crowded field or give it the focus\n";
        return 1;
    }
    const std::optional<RunningApplication> target = workspace.application(field.processIdentifier());
    if (!target ||
        !spinUntil([&] { return bool(tracked.applicationElement(field.processIdentifier())); }, 15s)) {
        err << "the field never appeared on the accessibility bus\n";
        return 1;
    }
    // Lets the focus events of the field's start reach the tracked tree.
    pauseFor(500ms);
    const int elements = countElements(tracked, tracked.applicationElement(field.processIdentifier()));

    // Each cold read is a new tree, whose tracker never saw the field take the focus.
    const QList<Row> rows{
        measure(
            QStringLiteral("focus events"), [&] { return read(tracked, workspace, *target); }, iterations),
        measure(
            QStringLiteral("cold walk"),
            [&] {
                AtspiAccessibilityTree late;
                return read(late, workspace, *target);
            },
            std::max(1, iterations / 20)),
    };

    QTextStream out(stdout);
    out << "selectedText() on a window of " << elements << " accessible elements, milliseconds\n\n";
    out << QStringLiteral("focus from").leftJustified(14) << ' ' << QStringLiteral("found").rightJustified(9)
        << ' ' << figureHeader(8) << '\n';
    for (const Row& row : rows) {
        out << row.name.leftJustified(14) << ' '
            << QStringLiteral("%1/%2").arg(row.found).arg(row.samples.size()).rightJustified(9) << ' '
            << figureCells(row.samples, 8, 2) << '\n';
    }
    out << "\nA cold read finds the focus only within " << AtspiAccessibilityTree::focusSearchLimit
        << " elements or " << AtspiAccessibilityTree::focusSearchBudget.count()
        << " ms of walking; past that it is empty and the caller takes the clipboard route.\n";
    // The tracked reads are the figure that matters; every one must have found the selection.
    return rows.first().found == rows.first().samples.size() ? 0 : 1;
}
