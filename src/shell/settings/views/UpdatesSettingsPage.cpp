#include "shell/settings/views/UpdatesSettingsPage.h"

#include "core/MivoraAppState.h"
#include "shell/settings/UpdatesSettingsModel.h"
#include "shell/settings/views/SettingsPageKit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

UpdatesSettingsPage::UpdatesSettingsPage(MivoraAppState& appState, AppUpdateManager& updates,
                                         const QString& currentVersion, QWidget* parent)
    : QWidget(parent), m_appState(appState),
      m_model(new UpdatesSettingsModel(appState, updates, currentVersion, this))
{
    m_heading = new QLabel(this);
    QFont headingFont = m_heading->font();
    headingFont.setPointSizeF(headingFont.pointSizeF() * 1.3);
    headingFont.setWeight(QFont::DemiBold);
    m_heading->setFont(headingFont);
    m_statusIcon = new QLabel(this);
    m_statusIcon->setFixedSize(28, 28);
    m_statusTitle = new QLabel(this);
    QFont bold = m_statusTitle->font();
    bold.setWeight(QFont::DemiBold);
    m_statusTitle->setFont(bold);
    m_message = new QLabel(this);
    m_message->setWordWrap(true);
    m_installShort = new QPushButton(this);
    m_check = new QPushButton(this);
    auto* status = new QGridLayout;
    status->setHorizontalSpacing(10);
    status->addWidget(m_statusIcon, 0, 0, 2, 1, Qt::AlignTop);
    status->addWidget(m_statusTitle, 0, 1);
    status->addWidget(m_message, 1, 1);
    status->addWidget(m_installShort, 0, 2, 2, 1, Qt::AlignVCenter);
    status->setColumnStretch(1, 1);

    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(16);
    rows->setVerticalSpacing(8);
    rows->setColumnMinimumWidth(0, 150);
    for (int row = 0; row < 3; ++row) {
        m_rowLabels[row] = new QLabel(this);
        m_rowValues[row] = new QLabel(this);
        m_rowValues[row]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        rows->addWidget(m_rowLabels[row], row, 0);
        rows->addWidget(m_rowValues[row], row, 1);
    }
    rows->setColumnStretch(2, 1);

    m_notesTitle = new QLabel(this);
    m_notesTitle->setFont(bold);
    m_notes = new QLabel(this);
    m_notes->setWordWrap(true);
    m_notes->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_install = new QPushButton(this);
    m_automatic = new QCheckBox(this);
    m_notifications = new QCheckBox(this);
    m_note = makeNote(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addWidget(m_heading);
    layout->addLayout(status);
    layout->addWidget(m_check, 0, Qt::AlignLeft);
    layout->addSpacing(4);
    layout->addLayout(rows);
    layout->addSpacing(4);
    layout->addWidget(m_notesTitle);
    layout->addWidget(m_notes);
    layout->addWidget(m_install, 0, Qt::AlignLeft);
    layout->addSpacing(4);
    layout->addWidget(m_automatic);
    layout->addWidget(m_notifications);
    layout->addWidget(m_note);
    layout->addStretch();

    connect(m_check, &QPushButton::clicked, m_model, &UpdatesSettingsModel::checkNow);
    connect(m_install, &QPushButton::clicked, m_model, &UpdatesSettingsModel::install);
    connect(m_installShort, &QPushButton::clicked, m_model, &UpdatesSettingsModel::install);
    connect(m_automatic, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_refreshing) {
            m_model->setAutomaticChecks(on);
        }
    });
    connect(m_notifications, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_refreshing) {
            m_model->setNotifications(on);
        }
    });
    connect(m_model, &UpdatesSettingsModel::changed, this, &UpdatesSettingsPage::refresh);
    refresh();
}

void UpdatesSettingsPage::refresh()
{
    m_refreshing = true;
    const UiLanguage language = m_appState.settings().uiLanguage;
    m_heading->setText(localized(language, "Updates", "Обновления"));
    m_statusIcon->setPixmap(
        settingsSymbol(m_model->statusSymbol(), palette().color(QPalette::Highlight), 28).pixmap(28, 28));
    m_statusTitle->setText(m_model->statusTitle());
    const std::optional<QString> message = m_model->message();
    m_message->setText(message.value_or(QString()));
    m_message->setVisible(message.has_value());
    m_installShort->setText(localized(language, "Install", "Установить"));
    m_installShort->setVisible(m_model->canInstall());
    m_check->setText(m_model->checkButtonText());
    m_check->setEnabled(m_model->canCheck());
    const char* const rowTexts[3][2] = {
        {"Current version", "Текущая версия"},
        {"Available version", "Доступная версия"},
        {"Last checked", "Последняя проверка"},
    };
    const QString values[3] = {m_model->currentVersion(), m_model->availableVersion(),
                               m_model->lastChecked()};
    for (int row = 0; row < 3; ++row) {
        m_rowLabels[row]->setText(localized(language, rowTexts[row][0], rowTexts[row][1]));
        m_rowValues[row]->setText(values[row]);
    }
    const std::optional<QString> notes = m_model->releaseNotes();
    m_notesTitle->setText(localized(language, "What's new", "Что нового"));
    m_notes->setText(notes.value_or(QString()));
    m_notesTitle->setVisible(notes.has_value());
    m_notes->setVisible(notes.has_value());
    m_install->setText(localized(language, "Install Update", "Установить обновление"));
    m_install->setIcon(
        settingsSymbol(QStringLiteral("arrow.down.circle.fill"), palette().color(QPalette::ButtonText)));
    m_install->setVisible(m_model->canInstall());
    m_automatic->setText(
        localized(language, "Check for updates automatically", "Автоматически проверять обновления"));
    m_automatic->setChecked(m_model->automaticChecks());
    m_notifications->setText(
        localized(language, "Show update notifications", "Показывать уведомления об обновлениях"));
    m_notifications->setChecked(m_model->notifications());
    m_note->setText(localized(
        language, "MivoraAI checks on launch and then at most once per day. Each new version is shown once.",
        "Проверка идет при запуске и затем не чаще раза в день. Новую версию показываем один раз."));
    m_refreshing = false;
}
