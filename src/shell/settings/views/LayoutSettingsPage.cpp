#include "shell/settings/views/LayoutSettingsPage.h"

#include "core/MivoraAppState.h"
#include "hotkeys/HotkeyFormatter.h"
#include "platform/ApplicationCatalog.h"
#include "shell/settings/LayoutSettingsModel.h"
#include "shell/settings/views/ApplicationChooserDialog.h"
#include "shell/settings/views/SettingsPageKit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

LayoutSettingsPage::LayoutSettingsPage(MivoraAppState& appState, KeyboardLayoutService& layouts,
                                       ApplicationCatalog& catalog, QWidget* parent)
    : QWidget(parent), m_appState(appState), m_catalog(catalog),
      m_model(new LayoutSettingsModel(appState, layouts, this))
{
    m_detect = new QPushButton(this);
    m_latinLabel = new QLabel(this);
    m_latin = new QComboBox(this);
    m_nativeLabel = new QLabel(this);
    m_native = new QComboBox(this);
    m_autoSwitch = new QCheckBox(this);
    m_hotkeyLabel = new QLabel(this);
    m_hotkey = new QLabel(this);
    m_hotkey->setFixedWidth(142);
    m_hotkey->setFrameShape(QFrame::StyledPanel);
    m_hotkey->setAlignment(Qt::AlignCenter);
    m_perApp = new QCheckBox(this);
    m_perAppNote = makeNote(this);
    m_rules = new QWidget(this);
    m_rulesLayout = new QVBoxLayout(m_rules);
    m_rulesLayout->setContentsMargins(0, 0, 0, 0);
    m_rulesLayout->setSpacing(6);
    m_addApplication = new QPushButton(this);
    for (QComboBox* picker : {m_latin, m_native}) {
        picker->setMinimumWidth(170);
    }

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->setColumnMinimumWidth(0, 150);
    grid->addWidget(m_detect, 0, 0, 1, 2, Qt::AlignLeft);
    grid->addWidget(m_latinLabel, 1, 0);
    grid->addWidget(m_latin, 1, 1, Qt::AlignLeft);
    grid->addWidget(m_nativeLabel, 2, 0);
    grid->addWidget(m_native, 2, 1, Qt::AlignLeft);
    grid->addWidget(m_autoSwitch, 3, 0, 1, 3);
    grid->addWidget(m_hotkeyLabel, 4, 0);
    grid->addWidget(m_hotkey, 4, 1, Qt::AlignLeft);
    grid->setColumnStretch(2, 1);
    auto* divider = new QFrame(this);
    divider->setFrameShape(QFrame::HLine);
    divider->setFrameShadow(QFrame::Sunken);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addLayout(grid);
    layout->addWidget(divider);
    layout->addWidget(m_perApp);
    layout->addWidget(m_perAppNote);
    layout->addWidget(m_rules);
    layout->addWidget(m_addApplication, 0, Qt::AlignLeft);
    layout->addStretch();

    connect(m_detect, &QPushButton::clicked, m_model, &LayoutSettingsModel::detect);
    connect(m_latin, &QComboBox::currentTextChanged, this, [this](const QString& name) {
        if (!m_refreshing) {
            m_model->setLatinSource(name);
        }
    });
    connect(m_native, &QComboBox::currentTextChanged, this, [this](const QString& name) {
        if (!m_refreshing) {
            m_model->setNativeSource(name);
        }
    });
    connect(m_autoSwitch, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_refreshing) {
            m_model->setAutoSwitch(on);
        }
    });
    connect(m_perApp, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_refreshing) {
            m_model->setAppSwitchingEnabled(on);
        }
    });
    connect(m_addApplication, &QPushButton::clicked, this, [this] {
        m_model->addApplication(
            ApplicationChooserDialog::choose(m_catalog, m_appState.settings().uiLanguage, this));
    });
    connect(&appState, &MivoraAppState::settingsChanged, this, &LayoutSettingsPage::refresh);
    connect(m_model, &LayoutSettingsModel::layoutNamesChanged, this, &LayoutSettingsPage::refresh);
    refresh();
}

void LayoutSettingsPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_model->loadLayoutNames();
}

void LayoutSettingsPage::fillPicker(QComboBox* picker, const QStringList& choices, const QString& current)
{
    QStringList shown;
    for (int index = 0; index < picker->count(); ++index) {
        shown << picker->itemText(index);
    }
    // Left alone when nothing changed: this runs inside the picker's own change signal too.
    if (shown != choices) {
        picker->clear();
        picker->addItems(choices);
    }
    picker->setCurrentIndex(int(choices.indexOf(current)));
}

void LayoutSettingsPage::refresh()
{
    m_refreshing = true;
    const MivoraSettings& settings = m_appState.settings();
    const UiLanguage language = settings.uiLanguage;
    m_detect->setText(localized(language, "Detect system layouts", "Определить системные раскладки"));
    m_latinLabel->setText(localized(language, "Latin layout", "Латинская раскладка"));
    fillPicker(m_latin, m_model->choicesShowing(settings.layoutLatinSource), settings.layoutLatinSource);
    m_nativeLabel->setText(localized(language, "Local layout", "Локальная раскладка"));
    fillPicker(m_native, m_model->choicesShowing(settings.layoutNativeSource), settings.layoutNativeSource);
    m_autoSwitch->setText(localized(language, "Automatically switch the system layout after fixing",
                                    "Автоматически переключать системную раскладку после исправления"));
    m_autoSwitch->setChecked(settings.layoutAutoSwitch);
    m_hotkeyLabel->setText(localized(language, "Hotkey", "Хоткей"));
    m_hotkey->setText(HotkeyFormatter::display(settings.layoutHotkey));
    m_perApp->setText(localized(language, "Keyboard layout per app", "Раскладка для приложений"));
    m_perApp->setChecked(settings.appLayoutSwitchingEnabled);
    m_perAppNote->setText(
        localized(language, "Automatically switch the keyboard layout when an assigned app becomes active.",
                  "Автоматически переключает раскладку, когда выбранное приложение становится активным."));
    m_addApplication->setText(localized(language, "Add application", "Добавить приложение"));
    m_addApplication->setIcon(settingsSymbol(QStringLiteral("plus"), palette().color(QPalette::ButtonText)));
    refreshRules();
    m_refreshing = false;
}

void LayoutSettingsPage::refreshRules()
{
    const MivoraSettings& settings = m_appState.settings();
    if (m_shownLanguage == settings.uiLanguage && m_shownRules == settings.appLayoutRules &&
        m_shownNames == m_model->layoutNames()) {
        return;
    }
    m_shownLanguage = settings.uiLanguage;
    m_shownRules = settings.appLayoutRules;
    m_shownNames = m_model->layoutNames();
    discardRows(m_rulesLayout);
    for (const AppLayoutRule& rule : m_shownRules) {
        auto* row = new QWidget(m_rules);
        auto* rowLayout = new QHBoxLayout(row);
        rowLayout->setContentsMargins(0, 0, 0, 0);
        auto* icon = new QLabel(row);
        const std::optional<InstalledApplication> application = m_catalog.application(rule.appPath);
        icon->setPixmap(
            ApplicationChooserDialog::iconOf(application ? application->icon : QString(), rule.appName)
                .pixmap(30, 30));
        icon->setFixedSize(30, 30);
        auto* name = new QLabel(rule.appName, row);
        auto* picker = new QComboBox(row);
        picker->setFixedWidth(170);
        fillPicker(picker, m_model->choicesShowing(rule.layoutName), rule.layoutName);
        auto* enabled = new QCheckBox(row);
        enabled->setChecked(rule.isEnabled);
        auto* remove = new QToolButton(row);
        remove->setIcon(settingsSymbol(QStringLiteral("trash"), QColor(220, 70, 70)));
        remove->setAutoRaise(true);
        remove->setToolTip(localized(settings.uiLanguage, "Remove rule", "Удалить правило"));
        rowLayout->addWidget(icon);
        rowLayout->addWidget(name, 1);
        rowLayout->addWidget(picker);
        rowLayout->addWidget(enabled);
        rowLayout->addWidget(remove);
        const QUuid id = rule.id;
        connect(picker, &QComboBox::currentTextChanged, this, [this, id](const QString& layoutName) {
            if (!m_refreshing) {
                m_model->setRuleLayout(id, layoutName);
            }
        });
        connect(enabled, &QCheckBox::toggled, this, [this, id](bool on) { m_model->setRuleEnabled(id, on); });
        connect(remove, &QToolButton::clicked, this, [this, id] { m_model->removeRule(id); });
        m_rulesLayout->addWidget(row);
    }
}
