#include "shell/views/GeneralSettingsView.h"

#include "core/MivoraAppState.h"
#include "core/UiLanguage.h"
#include "shell/AutostartEntry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

namespace {

template <typename E> void fillChoices(QComboBox* box, UiLanguage language, E current)
{
    const QSignalBlocker blocker(box);
    box->clear();
    for (const auto& c : EnumTable<E>::cases) {
        box->addItem(title(c.value, language), QVariant::fromValue(int(c.value)));
        if (c.value == current) {
            box->setCurrentIndex(box->count() - 1);
        }
    }
}

} // namespace

GeneralSettingsView::GeneralSettingsView(MivoraAppState& appState, AutostartEntry& autostart, QWidget* parent)
    : QWidget(parent), m_appState(appState), m_autostart(autostart)
{
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->setColumnMinimumWidth(0, 150);
    for (QLabel*& label : m_labels) {
        label = new QLabel(this);
        label->setMinimumWidth(200);
        label->setMaximumWidth(220);
        label->setWordWrap(true);
    }
    m_appearance = new QComboBox(this);
    m_language = new QComboBox(this);
    m_menuSize = new QComboBox(this);
    m_openOnLaunch = new QCheckBox(this);
    m_trayIcon = new QCheckBox(this);
    m_closeToTray = new QCheckBox(this);
    m_startAtLogin = new QCheckBox(this);
    QWidget* controls[] = {m_appearance, m_language,    m_menuSize,    m_openOnLaunch,
                           m_trayIcon,   m_closeToTray, m_startAtLogin};
    for (int row = 0; row < 7; ++row) {
        controls[row]->setMinimumWidth(160);
        controls[row]->setMaximumWidth(190);
        grid->addWidget(m_labels[row], row, 0);
        grid->addWidget(controls[row], row, 1, Qt::AlignLeft);
    }
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(7, 1);

    const auto edit = [this](const std::function<void(MivoraSettings&)>& change) {
        if (m_refreshing) {
            return;
        }
        MivoraSettings settings = m_appState.settings();
        change(settings);
        m_appState.setSettings(settings);
    };
    connect(m_appearance, &QComboBox::currentIndexChanged, this, [this, edit] {
        edit([this](MivoraSettings& s) {
            s.appearanceMode = AppearanceMode(m_appearance->currentData().toInt());
        });
    });
    connect(m_language, &QComboBox::currentIndexChanged, this, [this, edit] {
        edit([this](MivoraSettings& s) { s.uiLanguage = UiLanguage(m_language->currentData().toInt()); });
    });
    connect(m_menuSize, &QComboBox::currentIndexChanged, this, [this, edit] {
        edit([this](MivoraSettings& s) { s.quickMenuSize = MenuScale(m_menuSize->currentData().toInt()); });
    });
    connect(m_openOnLaunch, &QCheckBox::toggled, this,
            [edit](bool on) { edit([on](MivoraSettings& s) { s.openMainWindowOnLaunch = on; }); });
    connect(m_trayIcon, &QCheckBox::toggled, this,
            [edit](bool on) { edit([on](MivoraSettings& s) { s.menuBarIconVisible = on; }); });
    connect(m_closeToTray, &QCheckBox::toggled, this,
            [edit](bool on) { edit([on](MivoraSettings& s) { s.closeToMenuBar = on; }); });
    connect(m_startAtLogin, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_refreshing && !m_autostart.setEnabled(on)) {
            // The file system refused: show what is really there.
            refresh();
        }
    });
    refresh();
}

void GeneralSettingsView::refresh()
{
    m_refreshing = true;
    const MivoraSettings& settings = m_appState.settings();
    const UiLanguage language = settings.uiLanguage;
    const char* const texts[7][2] = {
        {"Appearance", "Внешний вид"},
        {"Interface language", "Язык интерфейса"},
        {"Menu size", "Размер меню"},
        {"Open main window on launch", "Открывать окно при запуске"},
        {"Show menu bar icon", "Показывать иконку в строке меню"},
        {"Keep MivoraAI in menu bar when closing", "Оставлять MivoraAI в строке меню при закрытии"},
        {"Start at login", "Запускать при входе"},
    };
    for (int row = 0; row < 7; ++row) {
        m_labels[row]->setText(localized(language, texts[row][0], texts[row][1]));
    }
    fillChoices(m_appearance, language, settings.appearanceMode);
    {
        // The languages are named in their own tongue, whatever the interface language.
        const QSignalBlocker blocker(m_language);
        m_language->clear();
        m_language->addItem(QStringLiteral("English"), int(UiLanguage::en));
        m_language->addItem(QStringLiteral("Русский"), int(UiLanguage::ru));
        m_language->setCurrentIndex(settings.uiLanguage == UiLanguage::ru ? 1 : 0);
    }
    fillChoices(m_menuSize, language, settings.quickMenuSize);
    m_openOnLaunch->setChecked(settings.openMainWindowOnLaunch);
    m_trayIcon->setChecked(settings.menuBarIconVisible);
    m_closeToTray->setChecked(settings.closeToMenuBar);
    m_startAtLogin->setChecked(m_autostart.isEnabled());
    m_refreshing = false;
}
