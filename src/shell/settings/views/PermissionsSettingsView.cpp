#include "shell/settings/views/PermissionsSettingsView.h"

#include "core/MivoraAppState.h"
#include "exchange/PermissionController.h"
#include "panels/views/SymbolIcons.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsPageKit.h"
#include "shell/settings/views/SettingsRow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Buttons side by side, from the leading edge.
QWidget* buttonLine(std::initializer_list<QPushButton*> buttons)
{
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* button : buttons) {
        layout->addWidget(button);
    }
    layout->addStretch();
    return line;
}

} // namespace

PermissionsSettingsView::PermissionsSettingsView(MivoraAppState& appState, PermissionController& permissions,
                                                 QWidget* parent)
    : SettingsPageWidget(appState, parent), m_permissions(permissions)
{
    auto* card = new SettingsCard(this);
    for (SettingsRow*& row : m_grants) {
        auto* badge = new QWidget;
        auto* badgeLayout = new QHBoxLayout(badge);
        badgeLayout->setContentsMargins(0, 0, 0, 0);
        badgeLayout->setSpacing(6);
        auto* icon = new QLabel;
        icon->setFixedSize(16, 16);
        badgeLayout->addWidget(icon);
        badgeLayout->addWidget(new QLabel);
        row = new SettingsRow(badge);
        card->addRow(row);
    }
    column()->addWidget(card);
    m_refresh = new QPushButton;
    m_request = new QPushButton;
    m_openAccessibility = new QPushButton;
    m_openInputMonitoring = new QPushButton;
    m_reset = new QPushButton;
    column()->addWidget(buttonLine({m_refresh, m_request}));
    column()->addWidget(buttonLine({m_openAccessibility, m_openInputMonitoring}));
    column()->addWidget(buttonLine({m_reset}));
    m_resetNote = makeNote(this);
    column()->addWidget(m_resetNote);

    connect(m_refresh, &QPushButton::clicked, this, [this] { m_permissions.refreshPermissions(); });
    connect(m_request, &QPushButton::clicked, this, [this] { m_permissions.requestPermissions(); });
    connect(m_openAccessibility, &QPushButton::clicked, this,
            [this] { m_permissions.openPermissionSettings(PermissionSettingsTarget::accessibility); });
    connect(m_openInputMonitoring, &QPushButton::clicked, this,
            [this] { m_permissions.openPermissionSettings(PermissionSettingsTarget::inputMonitoring); });
    connect(m_reset, &QPushButton::clicked, this, [this] { m_permissions.resetMivoraPermissions(true); });
    connect(&appState, &MivoraAppState::permissionStateChanged, this, &PermissionsSettingsView::refresh);
    followState();
}

void PermissionsSettingsView::showEvent(QShowEvent* event)
{
    SettingsPageWidget::showEvent(event);
    m_permissions.refreshPermissions();
}

void PermissionsSettingsView::showBadge(SettingsRow* row, bool granted)
{
    const QList<QLabel*> parts = row->control()->findChildren<QLabel*>();
    const QColor ink = granted ? QColor(52, 168, 83) : QColor(230, 140, 30);
    parts[0]->setPixmap(SymbolIcons::icon(granted ? QStringLiteral("checkmark.circle.fill")
                                                  : QStringLiteral("exclamationmark.circle"),
                                          ink, 16)
                            .pixmap(16, 16));
    parts[1]->setText(granted ? localized(language(), "Granted", "Разрешено")
                              : localized(language(), "Needs Access", "Нужен доступ"));
}

void PermissionsSettingsView::refresh()
{
    const PermissionState& state = m_appState.permissionState();
    m_grants[0]->setTitle(localized(language(), "Accessibility", "Универсальный доступ"));
    m_grants[1]->setTitle(localized(language(), "Input Monitoring", "Мониторинг ввода"));
    showBadge(m_grants[0], state.accessibilityGranted);
    showBadge(m_grants[1], state.inputMonitoringGranted);
    m_refresh->setText(localized(language(), "Refresh", "Обновить"));
    m_request->setText(localized(language(), "Request permissions", "Запросить разрешения"));
    m_openAccessibility->setText(localized(language(), "Open Accessibility", "Открыть Универсальный доступ"));
    m_openInputMonitoring->setText(
        localized(language(), "Open Input Monitoring", "Открыть Мониторинг ввода"));
    m_reset->setText(localized(language(), "Reset Mivora permissions + request again",
                               "Сбросить разрешения Mivora и запросить снова"));
    m_resetNote->setText(localized(
        language(),
        "Clears old Mivora entries from Accessibility/Input Monitoring, then immediately sends fresh macOS "
        "permission requests.",
        "Удаляет старые записи Mivora из Универсального доступа и Мониторинга ввода, затем сразу отправляет "
        "новые запросы macOS."));
}
