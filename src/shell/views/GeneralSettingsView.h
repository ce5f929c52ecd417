#pragma once

#include "shell/settings/views/SettingsPageWidget.h"

class AutostartEntry;
class SettingsRow;

// The General page: appearance, interface language, menu size, window and tray behaviour, and starting at
// login. Every control writes the settings through the state at once.
class GeneralSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    GeneralSettingsView(MivoraAppState& appState, AutostartEntry& autostart, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    AutostartEntry& m_autostart;
    SettingsRow* m_rows[7] = {};
};
