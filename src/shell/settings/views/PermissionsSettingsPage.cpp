#include "shell/settings/views/PermissionsSettingsPage.h"

#include "core/MivoraAppState.h"
#include "exchange/PermissionController.h"
#include "shell/settings/views/SettingsPageKit.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

PermissionsSettingsPage::PermissionsSettingsPage(MivoraAppState& appState, PermissionController& permissions,
                                                 QWidget* parent)
    : QWidget(parent), m_appState(appState), m_permissions(permissions)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->setColumnMinimumWidth(0, 180);
    for (int row = 0; row < 2; ++row) {
        m_rowTitles[row] = new QLabel(this);
        m_badgeIcons[row] = new QLabel(this);
        m_badgeIcons[row]->setFixedSize(16, 16);
        m_badgeTexts[row] = new QLabel(this);
        auto* badge = new QHBoxLayout;
        badge->setSpacing(6);
        badge->addWidget(m_badgeIcons[row]);
        badge->addWidget(m_badgeTexts[row]);
        grid->addWidget(m_rowTitles[row], row, 0);
        grid->addLayout(badge, row, 1, Qt::AlignLeft);
    }
    grid->setColumnStretch(2, 1);
    m_refresh = new QPushButton(this);
    m_request = new QPushButton(this);
    m_openAccessibility = new QPushButton(this);
    m_openInputMonitoring = new QPushButton(this);
    m_reset = new QPushButton(this);
    m_resetNote = makeNote(this);

    auto* firstButtons = new QHBoxLayout;
    firstButtons->addWidget(m_refresh);
    firstButtons->addWidget(m_request);
    firstButtons->addStretch();
    auto* openButtons = new QHBoxLayout;
    openButtons->addWidget(m_openAccessibility);
    openButtons->addWidget(m_openInputMonitoring);
    openButtons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addLayout(grid);
    layout->addSpacing(6);
    layout->addLayout(firstButtons);
    layout->addLayout(openButtons);
    layout->addWidget(m_reset, 0, Qt::AlignLeft);
    layout->addWidget(m_resetNote);
    layout->addStretch();

    connect(m_refresh, &QPushButton::clicked, this, [this] { m_permissions.refreshPermissions(); });
    connect(m_request, &QPushButton::clicked, this, [this] { m_permissions.requestPermissions(); });
    connect(m_openAccessibility, &QPushButton::clicked, this,
            [this] { m_permissions.openPermissionSettings(PermissionSettingsTarget::accessibility); });
    connect(m_openInputMonitoring, &QPushButton::clicked, this,
            [this] { m_permissions.openPermissionSettings(PermissionSettingsTarget::inputMonitoring); });
    connect(m_reset, &QPushButton::clicked, this, [this] { m_permissions.resetMivoraPermissions(true); });
    connect(&appState, &MivoraAppState::settingsChanged, this, &PermissionsSettingsPage::refresh);
    connect(&appState, &MivoraAppState::permissionStateChanged, this, &PermissionsSettingsPage::refresh);
    refresh();
}

void PermissionsSettingsPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_permissions.refreshPermissions();
}

void PermissionsSettingsPage::showBadge(QLabel* icon, QLabel* text, bool granted)
{
    const UiLanguage language = m_appState.settings().uiLanguage;
    const QColor ink = granted ? QColor(52, 168, 83) : QColor(230, 140, 30);
    icon->setPixmap(settingsSymbol(granted ? QStringLiteral("checkmark.circle.fill")
                                           : QStringLiteral("exclamationmark.circle"),
                                   ink)
                        .pixmap(16, 16));
    text->setText(granted ? localized(language, "Granted", "Разрешено")
                          : localized(language, "Needs Access", "Нужен доступ"));
}

void PermissionsSettingsPage::refresh()
{
    const UiLanguage language = m_appState.settings().uiLanguage;
    const PermissionState& state = m_appState.permissionState();
    m_rowTitles[0]->setText(localized(language, "Accessibility", "Универсальный доступ"));
    m_rowTitles[1]->setText(localized(language, "Input Monitoring", "Мониторинг ввода"));
    showBadge(m_badgeIcons[0], m_badgeTexts[0], state.accessibilityGranted);
    showBadge(m_badgeIcons[1], m_badgeTexts[1], state.inputMonitoringGranted);
    m_refresh->setText(localized(language, "Refresh", "Обновить"));
    m_request->setText(localized(language, "Request permissions", "Запросить разрешения"));
    m_openAccessibility->setText(localized(language, "Open Accessibility", "Открыть Универсальный доступ"));
    m_openInputMonitoring->setText(localized(language, "Open Input Monitoring", "Открыть Мониторинг ввода"));
    m_reset->setText(localized(language, "Reset Mivora permissions + request again",
                               "Сбросить разрешения Mivora и запросить снова"));
    m_resetNote->setText(localized(
        language,
        "Clears old Mivora entries from Accessibility/Input Monitoring, then immediately sends fresh macOS "
        "permission requests.",
        "Удаляет старые записи Mivora из Универсального доступа и Мониторинга ввода, затем сразу отправляет "
        "новые запросы macOS."));
}
