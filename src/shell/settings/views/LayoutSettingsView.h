#pragma once

#include "core/AppLayoutRule.h"
#include "shell/settings/views/SettingsPageWidget.h"

#include <optional>

class ApplicationCatalog;
class GlobalHotkeySuspension;
class KeyboardLayoutService;
class LayoutSettingsModel;
class QComboBox;
class QPushButton;
class SettingsCard;
class SettingsRow;

// The Layout page: detection and the two layout pickers, the layout fix's switch and hotkey, and the
// per-application rules with "Add application".
class LayoutSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    // catalog may be null where the platform cannot list its applications: "Add application" is left out.
    LayoutSettingsView(MivoraAppState& appState, KeyboardLayoutService& layouts, ApplicationCatalog* catalog,
                       GlobalHotkeySuspension* hotkeys, QWidget* parent = nullptr);

    LayoutSettingsModel& model() { return *m_model; }

protected:
    void refresh() override;
    void showEvent(QShowEvent* event) override;

private:
    void refreshRules();
    static void fillPicker(QComboBox* picker, const QStringList& choices, const QString& current);

    ApplicationCatalog* m_catalog;
    LayoutSettingsModel* m_model = nullptr;
    QPushButton* m_detect = nullptr;
    SettingsRow* m_latin = nullptr;
    SettingsRow* m_native = nullptr;
    SettingsRow* m_autoSwitch = nullptr;
    SettingsRow* m_hotkey = nullptr;
    SettingsRow* m_perApp = nullptr;
    SettingsCard* m_rules = nullptr;
    QPushButton* m_addApplication = nullptr;
    // What the rule rows were made from, so that they are made again only when it changes.
    QList<AppLayoutRule> m_shownRules;
    QStringList m_shownNames;
    std::optional<UiLanguage> m_shownLanguage;
};
