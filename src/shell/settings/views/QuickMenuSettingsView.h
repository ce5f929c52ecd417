#pragma once

#include "shell/settings/QuickMenuSettingsModel.h"
#include "shell/settings/views/SettingsPageWidget.h"

class GlobalHotkeySuspension;
class QLabel;
class SettingsCard;
class SettingsRow;

// The Quick Menu page: its size, its hotkey, selecting all first, and which actions it lists in what order.
class QuickMenuSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    QuickMenuSettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                          QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    QuickMenuSettingsModel m_model;
    SettingsRow* m_size = nullptr;
    SettingsRow* m_hotkey = nullptr;
    SettingsRow* m_selectAll = nullptr;
    QLabel* m_actionsHeading = nullptr;
    SettingsCard* m_actions = nullptr;
    QList<QWidget*> m_actionRows;
};
