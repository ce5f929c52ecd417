#pragma once

#include <QWidget>

class AutostartEntry;
class MivoraAppState;
class QCheckBox;
class QComboBox;
class QLabel;

// The General page: appearance, interface language, menu size, window and tray behaviour, and starting at
// login. Every control writes the settings through the state at once.
class GeneralSettingsView : public QWidget {
    Q_OBJECT
public:
    GeneralSettingsView(MivoraAppState& appState, AutostartEntry& autostart, QWidget* parent = nullptr);

    // Reads every control back from the settings and retitles them in the interface language.
    void refresh();

private:
    MivoraAppState& m_appState;
    AutostartEntry& m_autostart;
    QLabel* m_labels[7] = {};
    QComboBox* m_appearance = nullptr;
    QComboBox* m_language = nullptr;
    QComboBox* m_menuSize = nullptr;
    QCheckBox* m_openOnLaunch = nullptr;
    QCheckBox* m_trayIcon = nullptr;
    QCheckBox* m_closeToTray = nullptr;
    QCheckBox* m_startAtLogin = nullptr;
    bool m_refreshing = false;
};
