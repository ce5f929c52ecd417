#pragma once

#include "shell/settings/ActionsSettingsModel.h"
#include "shell/settings/views/SettingsPageWidget.h"

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class SettingsCard;
class SettingsRow;

// The Actions page: the translation target, a "Run" button for each action that works on the test text,
// the test text itself and the latest result.
class ActionsSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    explicit ActionsSettingsView(MivoraAppState& appState, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    void showSampleText();

    ActionsSettingsModel m_model;
    SettingsRow* m_target = nullptr;
    SettingsCard* m_actionCard = nullptr;
    QList<QuickAction> m_shownActions;
    QList<SettingsRow*> m_actionRows;
    QLabel* m_inputTitle = nullptr;
    QPlainTextEdit* m_input = nullptr;
    QLabel* m_outputTitle = nullptr;
    QLabel* m_output = nullptr;
};
