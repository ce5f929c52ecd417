#include "shell/settings/views/SettingsPageWidget.h"

#include "core/MivoraAppState.h"

#include <QLabel>
#include <QVBoxLayout>

SettingsPageWidget::SettingsPageWidget(MivoraAppState& appState, QWidget* parent)
    : QWidget(parent), m_appState(appState)
{
    m_column = new QVBoxLayout(this);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(12);
}

void SettingsPageWidget::followState()
{
    m_column->addStretch(1);
    connect(&m_appState, &MivoraAppState::settingsChanged, this, &SettingsPageWidget::refreshGuarded);
    refreshGuarded();
}

void SettingsPageWidget::refreshGuarded()
{
    m_refreshing = true;
    refresh();
    m_refreshing = false;
}

void SettingsPageWidget::edit(const std::function<void(MivoraSettings&)>& change)
{
    if (m_refreshing) {
        return;
    }
    MivoraSettings settings = m_appState.settings();
    change(settings);
    m_appState.setSettings(std::move(settings));
}

UiLanguage SettingsPageWidget::language() const
{
    return m_appState.settings().uiLanguage;
}

QLabel* SettingsPageWidget::addHeading()
{
    auto* heading = new QLabel(this);
    QFont font = heading->font();
    font.setWeight(QFont::DemiBold);
    font.setPointSizeF(font.pointSizeF() * 1.15);
    heading->setFont(font);
    m_column->addWidget(heading);
    return heading;
}
