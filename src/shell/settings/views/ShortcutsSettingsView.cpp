#include "shell/settings/views/ShortcutsSettingsView.h"

#include "core/MivoraAppState.h"
#include "hotkeys/views/HotkeyRecorderField.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsRow.h"
#include "shell/settings/views/SettingsSwitch.h"

#include <QLabel>

ShortcutsSettingsView::ShortcutsSettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                                             ShortcutsSettingsModel::Platform platform, QWidget* parent)
    : SettingsPageWidget(appState, parent), m_hotkeys(hotkeys), m_model(appState, std::move(platform))
{
    auto* main = new SettingsCard(this);
    for (const auto& mainRow : ShortcutsSettingsModel::mainRows()) {
        const auto field = mainRow.hotkey;
        m_mainRows.append(hotkeyRow(main, [this, field](const QString& hotkey) {
            edit([&](MivoraSettings& s) { s.*field = hotkey; });
        }));
    }
    column()->addWidget(main);
    m_stylesHeading = addHeading();
    m_styles = new SettingsCard(this);
    column()->addWidget(m_styles);

    auto* tilingSwitch = new SettingsSwitch;
    m_tiling = new SettingsRow(tilingSwitch);
    auto* tilingToggleCard = new SettingsCard(this);
    tilingToggleCard->addRow(m_tiling);
    column()->addWidget(tilingToggleCard);
    connect(tilingSwitch, &SettingsSwitch::toggled, this,
            [this](bool on) { edit([on](MivoraSettings& s) { s.windowTilingEnabled = on; }); });
    m_tilingCard = new SettingsCard(this);
    column()->addWidget(m_tilingCard);
    followState();
}

SettingsRow* ShortcutsSettingsView::hotkeyRow(SettingsCard* card, std::function<void(const QString&)> write)
{
    auto* field = new HotkeyRecorderField(m_hotkeys, 142);
    connect(field, &HotkeyRecorderField::hotkeyEdited, this, std::move(write));
    auto* row = new SettingsRow(field, card);
    card->addRow(row);
    return row;
}

void ShortcutsSettingsView::syncRows(SettingsCard* card, QList<SettingsRow*>& rows, QStringList& shownIds,
                                     const QStringList& ids,
                                     const std::function<void(const QString&, const QString&)>& write)
{
    if (ids == shownIds) {
        return;
    }
    discard(rows);
    for (const QString& id : ids) {
        rows.append(hotkeyRow(card, [write, id](const QString& hotkey) { write(id, hotkey); }));
    }
    shownIds = ids;
}

HotkeyRecorderField* ShortcutsSettingsView::recorder(SettingsRow* row)
{
    return static_cast<HotkeyRecorderField*>(row->control());
}

void ShortcutsSettingsView::refresh()
{
    const MivoraSettings& settings = m_appState.settings();
    const auto mainRows = ShortcutsSettingsModel::mainRows();
    for (qsizetype i = 0; i < m_mainRows.size(); ++i) {
        const auto text = ShortcutsSettingsModel::text(mainRows[i], language());
        m_mainRows[i]->setTitle(text.title);
        m_mainRows[i]->setSubtitle(text.subtitle);
        recorder(m_mainRows[i])->setHotkey(settings.*(mainRows[i].hotkey));
    }

    m_stylesHeading->setText(localized(language(), "Styles", "Стили"));
    const QList<PromptStyle>& styles = m_appState.promptStyles();
    QStringList styleIds;
    for (const PromptStyle& style : styles) {
        styleIds.append(style.id);
    }
    syncRows(m_styles, m_styleRows, m_styleIds, styleIds,
             [this](const QString& id, const QString& hotkey) { m_model.setStyleHotkey(id, hotkey); });
    for (qsizetype i = 0; i < styles.size(); ++i) {
        m_styleRows[i]->setTitle(m_appState.styleTitle(styles[i]));
        m_styleRows[i]->setSubtitle(ShortcutsSettingsModel::styleSubtitle(styles[i], language()));
        recorder(m_styleRows[i])->setHotkey(styles[i].hotkey);
    }

    m_tiling->setTitle(localized(language(), "Arrange windows with hotkeys", "Раскладывать окна хоткеями"));
    static_cast<SettingsSwitch*>(m_tiling->control())->setCheckedQuietly(settings.windowTilingEnabled);
    const QStringList tilingIds = m_model.tilingIds();
    syncRows(m_tilingCard, m_tilingRows, m_tilingIds, tilingIds,
             [this](const QString& id, const QString& hotkey) { m_model.setTilingHotkey(id, hotkey); });
    for (qsizetype i = 0; i < tilingIds.size(); ++i) {
        const auto text = m_model.tilingText(tilingIds[i], language());
        m_tilingRows[i]->setTitle(text.title);
        m_tilingRows[i]->setSubtitle(text.subtitle);
        recorder(m_tilingRows[i])->setHotkey(m_model.tilingHotkey(tilingIds[i]));
    }
}
