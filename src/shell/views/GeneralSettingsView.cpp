#include "shell/views/GeneralSettingsView.h"

#include "core/MivoraAppState.h"
#include "shell/AutostartEntry.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsEnumChoice.h"
#include "shell/settings/views/SettingsRow.h"
#include "shell/settings/views/SettingsSwitch.h"

namespace {

enum Row { appearance, interfaceLanguage, menuSize, openOnLaunch, trayIcon, closeToTray, startAtLogin, rowCount };

} // namespace

GeneralSettingsView::GeneralSettingsView(MivoraAppState& appState, AutostartEntry& autostart, QWidget* parent)
    : SettingsPageWidget(appState, parent), m_autostart(autostart)
{
    auto* card = new SettingsCard(this);
    for (int row = 0; row < rowCount; ++row) {
        QWidget* control = row <= menuSize ? static_cast<QWidget*>(new QComboBox) : new SettingsSwitch;
        if (row <= menuSize) {
            control->setMinimumWidth(160);
            control->setMaximumWidth(190);
        }
        m_rows[row] = new SettingsRow(control, card);
        m_rows[row]->setTitleWidth(150, 220);
        card->addRow(m_rows[row]);
    }
    column()->addWidget(card);

    const auto box = [this](Row row) { return static_cast<QComboBox*>(m_rows[row]->control()); };
    const auto toggle = [this](Row row) { return static_cast<SettingsSwitch*>(m_rows[row]->control()); };
    connect(box(appearance), &QComboBox::currentIndexChanged, this, [this, box] {
        edit([&](MivoraSettings& s) {
            s.appearanceMode = SettingsEnumChoice::current<AppearanceMode>(box(appearance));
        });
    });
    connect(box(interfaceLanguage), &QComboBox::currentIndexChanged, this, [this, box] {
        edit([&](MivoraSettings& s) {
            s.uiLanguage = SettingsEnumChoice::current<UiLanguage>(box(interfaceLanguage));
        });
    });
    connect(box(menuSize), &QComboBox::currentIndexChanged, this, [this, box] {
        edit([&](MivoraSettings& s) {
            s.quickMenuSize = SettingsEnumChoice::current<MenuScale>(box(menuSize));
        });
    });
    connect(toggle(openOnLaunch), &SettingsSwitch::toggled, this,
            [this](bool on) { edit([on](MivoraSettings& s) { s.openMainWindowOnLaunch = on; }); });
    connect(toggle(trayIcon), &SettingsSwitch::toggled, this,
            [this](bool on) { edit([on](MivoraSettings& s) { s.menuBarIconVisible = on; }); });
    connect(toggle(closeToTray), &SettingsSwitch::toggled, this,
            [this](bool on) { edit([on](MivoraSettings& s) { s.closeToMenuBar = on; }); });
    connect(toggle(startAtLogin), &SettingsSwitch::toggled, this, [this, toggle](bool on) {
        if (!m_autostart.setEnabled(on)) {
            // The file system refused: show what is really there.
            toggle(startAtLogin)->setCheckedQuietly(m_autostart.isEnabled());
        }
    });
    followState();
}

void GeneralSettingsView::refresh()
{
    const MivoraSettings& settings = m_appState.settings();
    const UiLanguage language = settings.uiLanguage;
    const char* const texts[rowCount][2] = {
        {"Appearance", "Внешний вид"},
        {"Interface language", "Язык интерфейса"},
        {"Menu size", "Размер меню"},
        {"Open main window on launch", "Открывать окно при запуске"},
        {"Show menu bar icon", "Показывать иконку в строке меню"},
        {"Keep MivoraAI in menu bar when closing", "Оставлять MivoraAI в строке меню при закрытии"},
        {"Start at login", "Запускать при входе"},
    };
    for (int row = 0; row < rowCount; ++row) {
        m_rows[row]->setTitle(localized(language, texts[row][0], texts[row][1]));
    }
    const auto box = [this](Row row) { return static_cast<QComboBox*>(m_rows[row]->control()); };
    const auto toggle = [this](Row row) { return static_cast<SettingsSwitch*>(m_rows[row]->control()); };
    SettingsEnumChoice::fill(box(appearance), language, settings.appearanceMode);
    {
        // The languages are named in their own tongue, whatever the interface language.
        QComboBox* languages = box(interfaceLanguage);
        const QSignalBlocker blocker(languages);
        languages->clear();
        languages->addItem(QStringLiteral("English"), int(UiLanguage::en));
        languages->addItem(QStringLiteral("Русский"), int(UiLanguage::ru));
        languages->setCurrentIndex(language == UiLanguage::ru ? 1 : 0);
    }
    SettingsEnumChoice::fill(box(menuSize), language, settings.quickMenuSize);
    toggle(openOnLaunch)->setCheckedQuietly(settings.openMainWindowOnLaunch);
    toggle(trayIcon)->setCheckedQuietly(settings.menuBarIconVisible);
    toggle(closeToTray)->setCheckedQuietly(settings.closeToMenuBar);
    toggle(startAtLogin)->setCheckedQuietly(m_autostart.isEnabled());
}
