#pragma once

#include <QWidget>

class ClipboardHistoryService;
class ClipboardSettingsModel;
class MivoraAppState;
class Pasteboard;
class QCheckBox;
class QLabel;
class QPushButton;
class QToolButton;
class QVBoxLayout;

// The Clipboard page: the history switch, the limit stepper, the kept days, clearing, and the recent items,
// each with put-back and delete.
class ClipboardSettingsPage : public QWidget {
    Q_OBJECT
public:
    ClipboardSettingsPage(MivoraAppState& appState, ClipboardHistoryService& history, Pasteboard& pasteboard,
                          QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    // The item rows are made again only while the page is seen; a hidden page just remembers to.
    void refreshItems();

    MivoraAppState& m_appState;
    ClipboardSettingsModel* m_model = nullptr;
    QCheckBox* m_historyEnabled = nullptr;
    QLabel* m_limit = nullptr;
    QToolButton* m_stepDown = nullptr;
    QToolButton* m_stepUp = nullptr;
    QLabel* m_daysLabel = nullptr;
    QLabel* m_days = nullptr;
    QPushButton* m_clear = nullptr;
    QLabel* m_recentTitle = nullptr;
    QWidget* m_items = nullptr;
    QVBoxLayout* m_itemsLayout = nullptr;
    bool m_itemsStale = true;
    bool m_refreshing = false;
};
