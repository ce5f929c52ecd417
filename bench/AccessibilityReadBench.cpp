#include "EventLoopWait.h"
#include "Percentile.h"
#include "PrivateSessionBus.h"
#include "TestFieldProcess.h"
#include "core/EventLoopClock.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "platform/x11/AtspiAccessibilityTree.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"

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
        const double elapsed = double(timer.nsecsElapsed()) / 1e6;
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
    const int iterations = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 200;
    const int labels = argc > 2 ? std::max(1, QByteArray(argv[2]).toInt()) : 2000;
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
    const X11DisplayConnection display;
    if (!display) {
        err << "needs an X server\n";
        return 1;
    }
    EventLoopClock clock;
    X11EventPump pump(display.get(), clock);
    X11ApplicationWorkspace workspace(pump);

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
    out << QStringLiteral("%1 %2 %3 %4 %5 %6\n")
               .arg(QStringLiteral("focus from"), -14)
               .arg(QStringLiteral("found"), 9)
               .arg(QStringLiteral("p50"), 8)
               .arg(QStringLiteral("p95"), 8)
               .arg(QStringLiteral("min"), 8)
               .arg(QStringLiteral("max"), 8);
    for (const Row& row : rows) {
        const bool any = !row.samples.isEmpty();
        const auto figure = [&](double fraction) {
            return any ? QString::number(percentile(row.samples, fraction), 'f', 2) : QStringLiteral("-");
        };
        out << QStringLiteral("%1 %2 %3 %4 %5 %6\n")
                   .arg(row.name, -14)
                   .arg(QStringLiteral("%1/%2").arg(row.found).arg(row.samples.size()), 9)
                   .arg(figure(0.5), 8)
                   .arg(figure(0.95), 8)
                   .arg(figure(0.0), 8)
                   .arg(figure(1.0), 8);
    }
    out << "\nA cold read finds the focus only within " << AtspiAccessibilityTree::focusSearchLimit
        << " elements or " << AtspiAccessibilityTree::focusSearchBudget.count()
        << " ms of walking; past that it is empty and the caller takes the clipboard route.\n";
    // The tracked reads are the figure that matters; every one must have found the selection.
    return rows.first().found == rows.first().samples.size() ? 0 : 1;
}
