#pragma once

#include "shell/settings/views/SettingsPageWidget.h"

class ClipboardHistoryService;
class ClipboardSettingsModel;
class QLabel;
class QPushButton;
class QToolButton;
class SettingsCard;
class SettingsRow;
class SettingsSwitch;

// The Clipboard page: the history switch, the limit stepper, the kept days, clearing, and the recent items,
// each with put-back and delete.
class ClipboardSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    ClipboardSettingsView(MivoraAppState& appState, ClipboardHistoryService& history,
                          QWidget* parent = nullptr);

protected:
    void refresh() override;
    void showEvent(QShowEvent* event) override;

private:
    // The item rows are made again only while the page is seen; a hidden page just remembers to.
    void refreshItems();

    ClipboardSettingsModel* m_model = nullptr;
    SettingsRow* m_historyEnabled = nullptr;
    SettingsRow* m_limit = nullptr;
    QToolButton* m_stepDown = nullptr;
    QToolButton* m_stepUp = nullptr;
    SettingsRow* m_days = nullptr;
    QPushButton* m_clear = nullptr;
    QLabel* m_recentHeading = nullptr;
    SettingsCard* m_items = nullptr;
    bool m_itemsStale = true;
};
