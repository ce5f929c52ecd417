// Open-to-painted times of the settings window, on whatever display Qt is given (run it under
// tests/x11/with-xvfb.sh for real X11 painting). Prints the median, fastest and slowest of several rounds
// for: building and showing the main window with every page; switching the open window to the Styles page;
// and building and showing the Styles page with its 17 cards on its own. Painted means the last widget of the
// window has received its first paint and the event queue has settled.
#include "AppStateHarness.h"
#include "BenchArguments.h"
#include "shell/settings/views/StylesSettingsView.h"
#include "shell/views/MainWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <functional>

namespace {

// Notes when any widget is painted, as seen by the application before the widget paints.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }
    ~PaintWatch() override { qApp->removeEventFilter(this); }
    qint64 lastPaintNs = -1;
    QElapsedTimer clock;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            lastPaintNs = clock.nsecsElapsed();
        }
        return false;
    }
};

// Runs open (which must make something visible), then the event loop until no paint came for 100 ms;
// returns the milliseconds from the start of open to the last paint.
double openToPainted(const std::function<void()>& open)
{
    PaintWatch watch;
    watch.clock.start();
    open();
    qint64 seen = -2;
    QElapsedTimer quiet;
    quiet.start();
    while (quiet.elapsed() < 100) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
        if (watch.lastPaintNs != seen) {
            seen = watch.lastPaintNs;
            quiet.restart();
        }
    }
    return watch.lastPaintNs / 1e6;
}

void report(const char* what, QList<double> times)
{
    std::sort(times.begin(), times.end());
    QTextStream(stdout) << QString::asprintf(
        "%-52s median %7.1f ms   min %7.1f ms   max %7.1f ms   (%lld rounds)\n", what,
        times[times.size() / 2], times.first(), times.last(), qlonglong(times.size()));
}

class Bench : public AppStateHarness {
public:
    void run(int rounds)
    {
        QList<double> window, switchToStyles, stylesAlone;
        for (int round = 0; round < rounds; ++round) {
            state.setSelectedSettingsPage(SettingsPage::general);
            std::unique_ptr<MainWindow> main;
            window.append(openToPainted([&] {
                main = std::make_unique<MainWindow>(state, SettingsPageServices{}, MainWindowHooks{});
                main->show();
            }));
            switchToStyles.append(
                openToPainted([&] { state.setSelectedSettingsPage(SettingsPage::styles); }));
            main.reset();

            std::unique_ptr<StylesSettingsView> styles;
            stylesAlone.append(openToPainted([&] {
                styles = std::make_unique<StylesSettingsView>(state, nullptr);
                styles->resize(700, 900);
                styles->show();
            }));
        }
        report("main window, all pages built, shown", window);
        report("open window switched to Styles (17 cards)", switchToStyles);
        report("Styles page with 17 cards built and shown alone", stylesAlone);
    }
};

} // namespace

int main(int argc, char** argv)
{
    // Start at login reads the autostart folder: keep it away from the user's.
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    QApplication app(argc, argv);
    QTextStream(stdout) << "platform: " << QGuiApplication::platformName() << "\n";
    Bench().run(countArgument(argc, argv, 1, 15, 0));
    return 0;
}
