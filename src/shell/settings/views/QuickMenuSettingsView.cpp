#include "shell/settings/views/QuickMenuSettingsView.h"

#include "core/MivoraAppState.h"
#include "hotkeys/views/HotkeyRecorderField.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsEnumChoice.h"
#include "shell/settings/views/SettingsRow.h"
#include "shell/settings/views/SettingsSwitch.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

QuickMenuSettingsView::QuickMenuSettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                                             QWidget* parent)
    : SettingsPageWidget(appState, parent), m_model(appState)
{
    auto* size = new QComboBox;
    size->setMinimumWidth(160);
    auto* recorder = new HotkeyRecorderField(hotkeys, 142);
    auto* selectAll = new SettingsSwitch;
    m_size = new SettingsRow(size);
    m_hotkey = new SettingsRow(recorder);
    m_selectAll = new SettingsRow(selectAll);
    auto* card = new SettingsCard(this);
    card->addRow(m_size);
    card->addRow(m_hotkey);
    card->addRow(m_selectAll);
    column()->addWidget(card);
    m_actionsHeading = addHeading();
    m_actions = new SettingsCard(this);
    m_actions->rows()->setSpacing(4);
    column()->addWidget(m_actions);

    connect(size, &QComboBox::currentIndexChanged, this, [this, size] {
        edit([size](MivoraSettings& s) { s.quickMenuSize = SettingsEnumChoice::current<MenuScale>(size); });
    });
    connect(recorder, &HotkeyRecorderField::hotkeyEdited, this,
            [this](const QString& hotkey) { edit([&](MivoraSettings& s) { s.quickMenuHotkey = hotkey; }); });
    connect(selectAll, &SettingsSwitch::toggled, this,
            [this](bool on) { edit([on](MivoraSettings& s) { s.autoSelectAllBeforeAction = on; }); });
    followState();
}

void QuickMenuSettingsView::refresh()
{
    const MivoraSettings& settings = m_appState.settings();
    m_size->setTitle(localized(language(), "Size", "Размер"));
    SettingsEnumChoice::fill(static_cast<QComboBox*>(m_size->control()), language(), settings.quickMenuSize);
    m_hotkey->setTitle(localized(language(), "Hotkey", "Хоткей"));
    static_cast<HotkeyRecorderField*>(m_hotkey->control())->setHotkey(settings.quickMenuHotkey);
    m_selectAll->setTitle(localized(language(), "Select all before Fix, Translate, and styles",
                                    "Выделять всё перед исправлением, переводом и стилями"));
    static_cast<SettingsSwitch*>(m_selectAll->control())
        ->setCheckedQuietly(settings.autoSelectAllBeforeAction);
    m_actionsHeading->setText(localized(language(), "Actions", "Действия"));

    // The rows are few: they are made again at each change, the old ones going after their click returns.
    for (QWidget* row : std::as_const(m_actionRows)) {
        row->hide();
        row->deleteLater();
    }
    m_actionRows.clear();
    const QStringList ordered = m_model.orderedActions();
    for (int index = 0; index < ordered.size(); ++index) {
        const QString id = ordered[index];
        auto* controls = new QWidget;
        auto* layout = new QHBoxLayout(controls);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(2);
        auto* up = new QToolButton;
        up->setText(QStringLiteral("▲"));
        up->setAutoRaise(true);
        up->setEnabled(index > 0);
        auto* down = new QToolButton;
        down->setText(QStringLiteral("▼"));
        down->setAutoRaise(true);
        down->setEnabled(index + 1 < ordered.size());
        layout->addWidget(up);
        layout->addWidget(down);
        connect(up, &QToolButton::clicked, this, [this, index] { m_model.moveAction(index, -1); });
        connect(down, &QToolButton::clicked, this, [this, index] { m_model.moveAction(index, +1); });

        auto* row = new QWidget(m_actions);
        auto* rowLayout = new QHBoxLayout(row);
        rowLayout->setContentsMargins(0, 0, 0, 0);
        auto* toggle = new SettingsSwitch(row);
        toggle->setCheckedQuietly(m_model.isEnabled(id));
        connect(toggle, &SettingsSwitch::toggled, this, [this, id](bool on) { m_model.setAction(id, on); });
        auto* titled = new SettingsRow(controls, row);
        titled->setTitle(m_appState.title(QuickAction(id)));
        rowLayout->addWidget(toggle);
        rowLayout->addWidget(titled, 1);
        m_actions->addRow(row);
        m_actionRows.append(row);
    }
}
