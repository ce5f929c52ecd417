#pragma once

#include "shell/AutostartEntry.h"
#include "shell/MainWindowHost.h"
#include "shell/settings/SettingsPageServices.h"

#include <QWidget>
#include <functional>

class MivoraAppState;
class QLabel;
class QListWidget;
class QStackedWidget;

// The program's one main window: the frame of the settings, a sidebar with the ten pages, a strip with the
// page's title and a scrolling detail area. Closing it asks the lifecycle logic, which may hide it instead.
class MainWindow : public QWidget, public MainWindowHost {
    Q_OBJECT
public:
    // The pages are built at once from services, which must outlive the window.
    MainWindow(MivoraAppState& appState, const SettingsPageServices& services, MainWindowHooks hooks,
               QWidget* parent = nullptr);
    ~MainWindow() override;

    bool hasVisibleMainWindow() const override;
    void setActivationPolicy(ActivationPolicy policy) override;
    void orderOut() override { hide(); }
    void showAndActivate() override;

    // The widget of a page, for the pages that other parts of the program fill in.
    void setPageWidget(int pageIndex, QWidget* page);

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void retranslate();
    void showSelectedPage();
    void applyTheme();

    MivoraAppState& m_appState;
    MainWindowHooks m_hooks;
    QListWidget* m_sidebar = nullptr;
    QLabel* m_pageTitle = nullptr;
    QStackedWidget* m_pages = nullptr;
    AutostartEntry m_autostart = AutostartEntry::forCurrentUser();
};
