#include "shell/settings/views/ActionsSettingsView.h"

#include "core/LanguageList.h"
#include "core/MivoraAppState.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsRow.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

ActionsSettingsView::ActionsSettingsView(MivoraAppState& appState, QWidget* parent)
    : SettingsPageWidget(appState, parent), m_model(appState)
{
    auto* languages = new QComboBox;
    languages->addItems(LanguageList::names());
    languages->setMaxVisibleItems(16);
    languages->setMinimumWidth(180);
    m_target = new SettingsRow(languages);
    auto* targetCard = new SettingsCard(this);
    targetCard->addRow(m_target);
    column()->addWidget(targetCard);
    connect(languages, &QComboBox::currentTextChanged, this,
            [this](const QString& name) { edit([&name](MivoraSettings& s) { s.targetLanguage = name; }); });

    m_actionCard = new SettingsCard(this);
    column()->addWidget(m_actionCard);

    auto* textCard = new SettingsCard(this);
    m_inputTitle = new QLabel(textCard);
    m_input = new QPlainTextEdit(textCard);
    m_input->setMinimumHeight(92);
    m_input->setMaximumHeight(180);
    m_outputTitle = new QLabel(textCard);
    m_output = new QLabel(textCard);
    m_output->setWordWrap(true);
    m_output->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_inputTitle, m_input, m_outputTitle, m_output}) {
        textCard->addRow(widget);
    }
    column()->addWidget(textCard);
    connect(m_input, &QPlainTextEdit::textChanged, this, [this] {
        if (m_input->toPlainText() != m_appState.sampleText()) {
            m_appState.setSampleText(m_input->toPlainText());
        }
    });
    connect(&appState, &MivoraAppState::sampleTextChanged, this, &ActionsSettingsView::showSampleText);
    connect(&appState, &MivoraAppState::latestOutputChanged, this,
            [this] { m_output->setText(m_appState.latestOutput()); });
    connect(&appState, &MivoraAppState::quickActionsChanged, this, &ActionsSettingsView::refresh);
    showSampleText();
    m_output->setText(appState.latestOutput());
    followState();
}

void ActionsSettingsView::showSampleText()
{
    if (m_input->toPlainText() != m_appState.sampleText()) {
        m_input->setPlainText(m_appState.sampleText());
    }
}

void ActionsSettingsView::refresh()
{
    m_target->setTitle(localized(language(), "Translate target", "Язык перевода"));
    auto* languages = static_cast<QComboBox*>(m_target->control());
    {
        const QSignalBlocker blocker(languages);
        languages->setCurrentText(m_appState.targetLanguage());
    }
    const QList<QuickAction> actions = m_model.runnableActions();
    if (actions != m_shownActions) {
        discard(m_actionRows);
        for (const QuickAction& action : actions) {
            auto* run = new QPushButton;
            connect(run, &QPushButton::clicked, this, [this, action] { m_model.run(action); });
            auto* row = new SettingsRow(run, m_actionCard);
            m_actionCard->addRow(row);
            m_actionRows.append(row);
        }
        m_shownActions = actions;
    }
    for (qsizetype i = 0; i < actions.size(); ++i) {
        m_actionRows[i]->setTitle(m_appState.title(actions[i]));
        m_actionRows[i]->setSymbol(actions[i].symbolName());
        static_cast<QPushButton*>(m_actionRows[i]->control())
            ->setText(localized(language(), "Run", "Запустить"));
    }
    m_inputTitle->setText(localized(language(), "Test input", "Тестовый текст"));
    m_outputTitle->setText(localized(language(), "Latest output", "Последний результат"));
}
