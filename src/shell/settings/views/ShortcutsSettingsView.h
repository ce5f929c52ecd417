#pragma once

#include "shell/settings/ShortcutsSettingsModel.h"
#include "shell/settings/views/SettingsPageWidget.h"

class GlobalHotkeySuspension;
class HotkeyRecorderField;
class QLabel;
class SettingsCard;
class SettingsRow;

// The Shortcuts page: a recorder for every hotkey of the program, the panels', the styles' and the window
// tiling's.
class ShortcutsSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    ShortcutsSettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                          ShortcutsSettingsModel::Platform platform, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    // A row with a title, a subtitle and a 142-wide recorder that calls write with each recorded text.
    SettingsRow* hotkeyRow(SettingsCard* card, std::function<void(const QString&)> write);
    // Makes the rows again, one per id, when the ids differ from those shown.
    void syncRows(SettingsCard* card, QList<SettingsRow*>& rows, QStringList& shownIds,
                  const QStringList& ids,
                  const std::function<void(const QString& id, const QString& hotkey)>& write);
    static HotkeyRecorderField* recorder(SettingsRow* row);

    GlobalHotkeySuspension* m_hotkeys;
    ShortcutsSettingsModel m_model;
    QList<SettingsRow*> m_mainRows;
    QLabel* m_stylesHeading = nullptr;
    SettingsCard* m_styles = nullptr;
    QStringList m_styleIds;
    QList<SettingsRow*> m_styleRows;
    SettingsRow* m_tiling = nullptr;
    SettingsCard* m_tilingCard = nullptr;
    QStringList m_tilingIds;
    QList<SettingsRow*> m_tilingRows;
};
