#pragma once

#include "core/AppLayoutRule.h"
#include "core/UiLanguage.h"

#include <QWidget>

class ApplicationCatalog;
class KeyboardLayoutService;
class LayoutSettingsModel;
class MivoraAppState;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

// The Layout page: detection and the two layout pickers, the layout fix's switch and hotkey, and the
// per-application rules with "Add application".
class LayoutSettingsPage : public QWidget {
    Q_OBJECT
public:
    LayoutSettingsPage(MivoraAppState& appState, KeyboardLayoutService& layouts, ApplicationCatalog& catalog,
                       QWidget* parent = nullptr);

    LayoutSettingsModel& model() { return *m_model; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    void refreshRules();
    static void fillPicker(QComboBox* picker, const QStringList& choices, const QString& current);

    MivoraAppState& m_appState;
    ApplicationCatalog& m_catalog;
    LayoutSettingsModel* m_model = nullptr;
    QPushButton* m_detect = nullptr;
    QLabel* m_latinLabel = nullptr;
    QComboBox* m_latin = nullptr;
    QLabel* m_nativeLabel = nullptr;
    QComboBox* m_native = nullptr;
    QCheckBox* m_autoSwitch = nullptr;
    QLabel* m_hotkeyLabel = nullptr;
    // RECORDER SLOT: stands where the hotkey recorder field (142 wide, bound to layoutHotkey through
    // LayoutSettingsModel::setHotkey) goes once it exists; until then it shows the hotkey read-only.
    QLabel* m_hotkey = nullptr;
    QCheckBox* m_perApp = nullptr;
    QLabel* m_perAppNote = nullptr;
    QWidget* m_rules = nullptr;
    QVBoxLayout* m_rulesLayout = nullptr;
    QPushButton* m_addApplication = nullptr;
    // What the rule rows were made from, so that they are made again only when it changes.
    QList<AppLayoutRule> m_shownRules;
    QStringList m_shownNames;
    std::optional<UiLanguage> m_shownLanguage;
    bool m_refreshing = false;
};
