#include "clipboard/views/ClipboardHistoryPanel.h"
#include "core/MivoraAppState.h"
#include "panels/AssistantPanelController.h"
#include "panels/TranslationPreviewPanelController.h"
#include "panels/views/AssistantPanel.h"
#include "panels/views/FloatingButtonPanel.h"
#include "panels/views/QtLocalInputMonitor.h"
#include "panels/views/QuickActionPanel.h"
#include "panels/views/StatusHUDPanel.h"
#include "panels/views/TranslationPreviewPanel.h"
#include "shell/CommandLine.h"
#include "shell/DisplaySession.h"
#include "shell/InstanceChannel.h"
#include "shell/MivoraNativeApp.h"
#include "shell/UnixSignalWatcher.h"
#include "shell/views/MainWindow.h"
#include "shell/views/MenuBarIcon.h"
#include "shell/views/TrayIcon.h"
#include "updates/views/UpdateAlertDialog.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFile>
#include <QLockFile>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTextStream>
#include <memory>
#include <qcoro/qcorotask.h>

namespace {

void setIdentity()
{
    QCoreApplication::setOrganizationName(QStringLiteral("MivoraAI"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("mivora.ai"));
    QCoreApplication::setApplicationName(QStringLiteral("mivora"));
}

int runOnce(int argc, char** argv, const CommandLine& command)
{
    QCoreApplication app(argc, argv);
    setIdentity();
    MivoraNativeApp mivora;
    QFile standardInput;
    standardInput.open(stdin, QIODevice::ReadOnly);
    const QString text = command.inputText(standardInput);
    int exitCode = 1;
    auto task = mivora.runCommand(command.action, text).then([&](int code) {
        exitCode = code;
        QCoreApplication::exit(code);
    });
    if (!task.isReady()) {
        QCoreApplication::exec();
    }
    return exitCode;
}

// The widgets of the resident program's face.
MivoraNativeApp::Views residentViews()
{
    MivoraNativeApp::Views views;
    views.makeStatusHUD = [](FloatingWindowTraits* traits) {
        return std::make_unique<StatusHUDPanel>(traits);
    };
    views.makeTray = [] { return std::make_unique<TrayIcon>(); };
    views.trayHostAvailable = [] { return TrayIcon::isHostAvailable(); };
    views.makeMainWindow = [](MivoraAppState& state, const SettingsPageServices& pages,
                              MainWindowHooks hooks) {
        return std::make_unique<MainWindow>(state, pages, std::move(hooks));
    };
    views.makeUpdateAlerts = [](AppUpdateManager& updates, std::function<UiLanguage()> language) {
        return std::make_unique<UpdateAlertDialog>(updates, std::move(language));
    };
    views.makeAssistantPanel = [](AssistantPanelController& controller, FloatingWindowTraits* traits) {
        return std::make_unique<AssistantPanel>(controller, traits);
    };
    views.makeTranslationPreview = [](TranslationPreviewPanelController& controller,
                                      FloatingWindowTraits* traits, InputEventMonitor& globalInput) {
        return std::make_unique<TranslationPreviewPanel>(controller, traits, globalInput);
    };
    views.makeLocalInputMonitor = [] { return std::make_unique<QtLocalInputMonitor>(); };
    views.makeQuickPanel = [](QuickPanelController& controller, FloatingWindowTraits* traits) {
        return std::make_unique<QuickActionPanel>(controller, traits);
    };
    views.makeFloatingButton = [](FloatingButtonController& controller, FloatingWindowTraits* traits) {
        return std::make_unique<FloatingButtonPanel>(controller, traits);
    };
    views.makeClipboardPanel = [](ClipboardPanelController& controller, FloatingWindowTraits* traits) {
        return std::make_unique<ClipboardHistoryPanel>(controller, traits);
    };
    return views;
}

int runResident(int argc, char** argv)
{
    // Qt would abort without a display; say why instead. Tests that choose another platform plugin on
    // purpose are left alone.
    const DisplaySession session = DisplaySession::fromEnvironment(QProcessEnvironment::systemEnvironment());
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if ((platform.isEmpty() || platform == "xcb") && !session.refusal().isEmpty()) {
        QTextStream(stderr) << session.refusal() << Qt::endl;
        return 1;
    }

    QApplication app(argc, argv);
    setIdentity();
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(MenuBarIcon::icon(QApplication::palette().color(QPalette::WindowText)));

    // One resident instance per user session: a second would fight the first over every global hotkey. A
    // second start brings the first one's window forward instead.
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    InstanceChannel channel(runtime + QStringLiteral("/mivora.socket"));
    QLockFile instanceLock(runtime + QStringLiteral("/mivora.lock"));
    if (!instanceLock.tryLock(0)) {
        if (channel.askRunningInstanceToShow()) {
            return 0;
        }
        QTextStream(stderr) << "MivoraAI is already running." << Qt::endl;
        return 1;
    }

    UnixSignalWatcher signalWatcher;
    MivoraNativeApp mivora(residentViews());
    // Through the program's own quit: Qt asks every window to close first, and the main window refuses
    // unless the program is known to be ending.
    QObject::connect(&signalWatcher, &UnixSignalWatcher::terminationRequested, &mivora,
                     &MivoraNativeApp::quit);
    QObject::connect(&channel, &InstanceChannel::showRequested, &mivora, &MivoraNativeApp::showMainWindow);
    channel.listen();
    mivora.start();
    const QString warning = session.warning(mivora.appState().settings().uiLanguage == UiLanguage::ru);
    if (!warning.isEmpty()) {
        mivora.appState().publishStatus(ActionStatus::done(warning));
    }
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    const CommandLine command = CommandLine::parse(arguments);
    switch (command.mode) {
    case CommandLine::Mode::help:
        QTextStream(stdout) << CommandLine::usage();
        return 0;
    case CommandLine::Mode::invalid:
        QTextStream(stderr) << command.error << "\n\n" << CommandLine::usage();
        return 2;
    case CommandLine::Mode::run:
        return runOnce(argc, argv, command);
    case CommandLine::Mode::resident:
        break;
    }
    return runResident(argc, argv);
}
