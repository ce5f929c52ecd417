#include "shell/settings/views/UpdatesSettingsView.h"

#include "core/MivoraAppState.h"
#include "panels/views/SymbolIcons.h"
#include "shell/settings/UpdatesSettingsModel.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsPageKit.h"
#include "shell/settings/views/SettingsRow.h"
#include "shell/settings/views/SettingsSwitch.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

UpdatesSettingsView::UpdatesSettingsView(MivoraAppState& appState, AppUpdateManager& updates,
                                         const QString& currentVersion, QWidget* parent)
    : SettingsPageWidget(appState, parent),
      m_model(new UpdatesSettingsModel(appState, updates, currentVersion, this))
{
    m_heading = addHeading();
    auto* status = new QWidget;
    auto* statusLayout = new QGridLayout(status);
    statusLayout->setContentsMargins(0, 0, 0, 0);
    statusLayout->setHorizontalSpacing(10);
    m_statusIcon = new QLabel;
    m_statusIcon->setFixedSize(28, 28);
    m_statusTitle = new QLabel;
    QFont bold = m_statusTitle->font();
    bold.setWeight(QFont::DemiBold);
    m_statusTitle->setFont(bold);
    m_message = new QLabel;
    m_message->setWordWrap(true);
    m_installShort = new QPushButton;
    statusLayout->addWidget(m_statusIcon, 0, 0, 2, 1, Qt::AlignTop);
    statusLayout->addWidget(m_statusTitle, 0, 1);
    statusLayout->addWidget(m_message, 1, 1);
    statusLayout->addWidget(m_installShort, 0, 2, 2, 1, Qt::AlignVCenter);
    statusLayout->setColumnStretch(1, 1);
    auto* statusCard = new SettingsCard(this);
    statusCard->addRow(status);
    column()->addWidget(statusCard);
    m_check = new QPushButton(this);
    column()->addWidget(m_check, 0, Qt::AlignLeft);

    auto* versions = new SettingsCard(this);
    for (SettingsRow*& row : m_versionRows) {
        auto* value = new QLabel;
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        row = new SettingsRow(value);
        versions->addRow(row);
    }
    column()->addWidget(versions);

    m_notesHeading = addHeading();
    m_notesCard = new SettingsCard(this);
    m_notes = new QLabel;
    m_notes->setWordWrap(true);
    m_notes->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_install = new QPushButton;
    m_notesCard->addRow(m_notes);
    m_notesCard->addRow(m_install);
    m_notesCard->rows()->setAlignment(m_install, Qt::AlignLeft);
    column()->addWidget(m_notesCard);

    auto* automatic = new SettingsSwitch;
    auto* notifications = new SettingsSwitch;
    m_automatic = new SettingsRow(automatic);
    m_notifications = new SettingsRow(notifications);
    auto* switches = new SettingsCard(this);
    switches->addRow(m_automatic);
    switches->addRow(m_notifications);
    column()->addWidget(switches);
    m_note = makeNote(this);
    column()->addWidget(m_note);

    connect(m_check, &QPushButton::clicked, m_model, &UpdatesSettingsModel::checkNow);
    connect(m_install, &QPushButton::clicked, m_model, &UpdatesSettingsModel::install);
    connect(m_installShort, &QPushButton::clicked, m_model, &UpdatesSettingsModel::install);
    connect(automatic, &SettingsSwitch::toggled, m_model, &UpdatesSettingsModel::setAutomaticChecks);
    connect(notifications, &SettingsSwitch::toggled, m_model, &UpdatesSettingsModel::setNotifications);
    // The model also speaks for the update manager, whose changes are no settings change.
    connect(m_model, &UpdatesSettingsModel::changed, this, &UpdatesSettingsView::refresh);
    followState();
}

void UpdatesSettingsView::refresh()
{
    m_heading->setText(localized(language(), "Updates", "Обновления"));
    m_statusIcon->setPixmap(
        SymbolIcons::icon(m_model->statusSymbol(), palette().color(QPalette::Highlight), 28).pixmap(28, 28));
    m_statusTitle->setText(m_model->statusTitle());
    const std::optional<QString> message = m_model->message();
    m_message->setText(message.value_or(QString()));
    m_message->setVisible(message.has_value());
    m_installShort->setText(localized(language(), "Install", "Установить"));
    m_installShort->setVisible(m_model->canInstall());
    m_check->setText(m_model->checkButtonText());
    m_check->setEnabled(m_model->canCheck());
    const char* const rowTitles[3][2] = {
        {"Current version", "Текущая версия"},
        {"Available version", "Доступная версия"},
        {"Last checked", "Последняя проверка"},
    };
    const QString values[3] = {m_model->currentVersion(), m_model->availableVersion(),
                               m_model->lastChecked()};
    for (int row = 0; row < 3; ++row) {
        m_versionRows[row]->setTitle(localized(language(), rowTitles[row][0], rowTitles[row][1]));
        static_cast<QLabel*>(m_versionRows[row]->control())->setText(values[row]);
    }
    const std::optional<QString> notes = m_model->releaseNotes();
    m_notesHeading->setText(localized(language(), "What's new", "Что нового"));
    m_notes->setText(notes.value_or(QString()));
    m_notes->setVisible(notes.has_value());
    m_notesHeading->setVisible(notes.has_value() || m_model->canInstall());
    m_notesCard->setVisible(notes.has_value() || m_model->canInstall());
    m_install->setText(localized(language(), "Install Update", "Установить обновление"));
    m_install->setIcon(SymbolIcons::icon(QStringLiteral("arrow.down.circle.fill"),
                                         palette().color(QPalette::ButtonText), 16));
    m_install->setVisible(m_model->canInstall());
    m_automatic->setTitle(
        localized(language(), "Check for updates automatically", "Автоматически проверять обновления"));
    static_cast<SettingsSwitch*>(m_automatic->control())->setCheckedQuietly(m_model->automaticChecks());
    m_notifications->setTitle(
        localized(language(), "Show update notifications", "Показывать уведомления об обновлениях"));
    static_cast<SettingsSwitch*>(m_notifications->control())->setCheckedQuietly(m_model->notifications());
    m_note->setText(localized(
        language(),
        "MivoraAI checks on launch and then at most once per day. Each new version is shown once.",
        "Проверка идет при запуске и затем не чаще раза в день. Новую версию показываем один раз."));
}
