#include "shell/settings/views/LayoutSettingsView.h"

#include "core/MivoraAppState.h"
#include "hotkeys/views/HotkeyRecorderField.h"
#include "panels/views/SymbolIcons.h"
#include "platform/ApplicationCatalog.h"
#include "shell/settings/LayoutSettingsModel.h"
#include "shell/settings/views/ApplicationChooserDialog.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsPageKit.h"
#include "shell/settings/views/SettingsRow.h"
#include "shell/settings/views/SettingsSwitch.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

LayoutSettingsView::LayoutSettingsView(MivoraAppState& appState, KeyboardLayoutService& layouts,
                                       ApplicationCatalog* catalog, GlobalHotkeySuspension* hotkeys,
                                       QWidget* parent)
    : SettingsPageWidget(appState, parent), m_catalog(catalog),
      m_model(new LayoutSettingsModel(appState, layouts, this))
{
    m_detect = new QPushButton(this);
    column()->addWidget(m_detect, 0, Qt::AlignLeft);
    auto* latin = new QComboBox;
    auto* native = new QComboBox;
    for (QComboBox* picker : {latin, native}) {
        picker->setMinimumWidth(170);
    }
    auto* autoSwitch = new SettingsSwitch;
    auto* recorder = new HotkeyRecorderField(hotkeys, 142);
    m_latin = new SettingsRow(latin);
    m_native = new SettingsRow(native);
    m_autoSwitch = new SettingsRow(autoSwitch);
    m_hotkey = new SettingsRow(recorder);
    auto* card = new SettingsCard(this);
    card->addRow(m_latin);
    card->addRow(m_native);
    card->addRow(m_autoSwitch);
    card->addRow(m_hotkey);
    column()->addWidget(card);

    auto* perApp = new SettingsSwitch;
    m_perApp = new SettingsRow(perApp);
    auto* perAppCard = new SettingsCard(this);
    perAppCard->addRow(m_perApp);
    column()->addWidget(perAppCard);
    m_rules = new SettingsCard(this);
    m_rules->rows()->setSpacing(6);
    column()->addWidget(m_rules);
    m_addApplication = new QPushButton(this);
    m_addApplication->setVisible(catalog != nullptr);
    column()->addWidget(m_addApplication, 0, Qt::AlignLeft);

    connect(m_detect, &QPushButton::clicked, m_model, &LayoutSettingsModel::detect);
    connect(latin, &QComboBox::currentTextChanged, m_model, &LayoutSettingsModel::setLatinSource);
    connect(native, &QComboBox::currentTextChanged, m_model, &LayoutSettingsModel::setNativeSource);
    connect(autoSwitch, &SettingsSwitch::toggled, m_model, &LayoutSettingsModel::setAutoSwitch);
    connect(recorder, &HotkeyRecorderField::hotkeyEdited, m_model, &LayoutSettingsModel::setHotkey);
    connect(perApp, &SettingsSwitch::toggled, m_model, &LayoutSettingsModel::setAppSwitchingEnabled);
    connect(m_addApplication, &QPushButton::clicked, this, [this] {
        m_model->addApplication(ApplicationChooserDialog::choose(*m_catalog, language(), this));
    });
    connect(m_model, &LayoutSettingsModel::layoutNamesChanged, this, &LayoutSettingsView::refresh);
    followState();
}

void LayoutSettingsView::showEvent(QShowEvent* event)
{
    SettingsPageWidget::showEvent(event);
    m_model->loadLayoutNames();
}

void LayoutSettingsView::fillPicker(QComboBox* picker, const QStringList& choices, const QString& current)
{
    // Filling announces nothing: only the user's pick is an edit. The list stays when it is the same, since
    // this also runs inside the picker's own change signal.
    const QSignalBlocker quiet(picker);
    QStringList shown;
    for (int index = 0; index < picker->count(); ++index) {
        shown << picker->itemText(index);
    }
    if (shown != choices) {
        picker->clear();
        picker->addItems(choices);
    }
    picker->setCurrentIndex(int(choices.indexOf(current)));
}

void LayoutSettingsView::refresh()
{
    const MivoraSettings& settings = m_appState.settings();
    m_detect->setText(localized(language(), "Detect system layouts", "Определить системные раскладки"));
    m_latin->setTitle(localized(language(), "Latin layout", "Латинская раскладка"));
    fillPicker(static_cast<QComboBox*>(m_latin->control()),
               m_model->choicesShowing(settings.layoutLatinSource), settings.layoutLatinSource);
    m_native->setTitle(localized(language(), "Local layout", "Локальная раскладка"));
    fillPicker(static_cast<QComboBox*>(m_native->control()),
               m_model->choicesShowing(settings.layoutNativeSource), settings.layoutNativeSource);
    m_autoSwitch->setTitle(localized(language(), "Automatically switch the system layout after fixing",
                                     "Автоматически переключать системную раскладку после исправления"));
    static_cast<SettingsSwitch*>(m_autoSwitch->control())->setCheckedQuietly(settings.layoutAutoSwitch);
    m_hotkey->setTitle(localized(language(), "Hotkey", "Хоткей"));
    static_cast<HotkeyRecorderField*>(m_hotkey->control())->setHotkey(settings.layoutHotkey);
    m_perApp->setTitle(localized(language(), "Keyboard layout per app", "Раскладка для приложений"));
    m_perApp->setSubtitle(
        localized(language(), "Automatically switch the keyboard layout when an assigned app becomes active.",
                  "Автоматически переключает раскладку, когда выбранное приложение становится активным."));
    static_cast<SettingsSwitch*>(m_perApp->control())->setCheckedQuietly(settings.appLayoutSwitchingEnabled);
    m_addApplication->setText(localized(language(), "Add application", "Добавить приложение"));
    m_addApplication->setIcon(
        SymbolIcons::icon(QStringLiteral("plus"), palette().color(QPalette::ButtonText), 16));
    refreshRules();
}

void LayoutSettingsView::refreshRules()
{
    const MivoraSettings& settings = m_appState.settings();
    if (m_shownLanguage == settings.uiLanguage && m_shownRules == settings.appLayoutRules &&
        m_shownNames == m_model->layoutNames()) {
        return;
    }
    m_shownLanguage = settings.uiLanguage;
    m_shownRules = settings.appLayoutRules;
    m_shownNames = m_model->layoutNames();
    discardRows(m_rules->rows());
    m_rules->setVisible(!m_shownRules.isEmpty());
    for (const AppLayoutRule& rule : std::as_const(m_shownRules)) {
        auto* row = new QWidget;
        auto* rowLayout = new QHBoxLayout(row);
        rowLayout->setContentsMargins(0, 0, 0, 0);
        auto* icon = new QLabel(row);
        const std::optional<InstalledApplication> application =
            m_catalog ? m_catalog->application(rule.appPath) : std::nullopt;
        icon->setPixmap(
            ApplicationChooserDialog::iconOf(application ? application->icon : QString(), rule.appName)
                .pixmap(30, 30));
        icon->setFixedSize(30, 30);
        auto* name = new QLabel(rule.appName, row);
        auto* picker = new QComboBox(row);
        picker->setFixedWidth(170);
        fillPicker(picker, m_model->choicesShowing(rule.layoutName), rule.layoutName);
        auto* enabled = new SettingsSwitch(row);
        enabled->setCheckedQuietly(rule.isEnabled);
        auto* remove = new QToolButton(row);
        remove->setIcon(SymbolIcons::icon(QStringLiteral("trash"), QColor(220, 70, 70), 16));
        remove->setAutoRaise(true);
        remove->setToolTip(localized(language(), "Remove rule", "Удалить правило"));
        rowLayout->addWidget(icon);
        rowLayout->addWidget(name, 1);
        rowLayout->addWidget(picker);
        rowLayout->addWidget(enabled);
        rowLayout->addWidget(remove);
        const QUuid id = rule.id;
        connect(picker, &QComboBox::currentTextChanged, this,
                [this, id](const QString& layoutName) { m_model->setRuleLayout(id, layoutName); });
        connect(enabled, &SettingsSwitch::toggled, this,
                [this, id](bool on) { m_model->setRuleEnabled(id, on); });
        connect(remove, &QToolButton::clicked, this, [this, id] { m_model->removeRule(id); });
        m_rules->addRow(row);
    }
}
