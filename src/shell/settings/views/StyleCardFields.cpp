#include "shell/settings/views/StyleCardFields.h"

#include "hotkeys/views/HotkeyRecorderField.h"
#include "shell/settings/views/SettingsSwitch.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

StyleCardFields::StyleCardFields(GlobalHotkeySuspension* hotkeys, int recorderWidth, bool withAutoSwitch,
                                 QWidget* parent)
    : SettingsCard(parent)
{
    m_name = new QLineEdit(this);
    m_hotkey = new HotkeyRecorderField(hotkeys, recorderWidth, this);
    m_delete = new QToolButton(this);
    m_delete->setText(QStringLiteral("✕"));
    m_delete->setAutoRaise(true);
    m_delete->setStyleSheet(QStringLiteral("QToolButton { color: #ff453a; }"));
    m_prompt = new QPlainTextEdit(this);
    m_prompt->setMinimumHeight(86);
    m_prompt->setMaximumHeight(120);

    auto* top = new QHBoxLayout;
    top->setSpacing(8);
    top->addWidget(m_name, 1);
    top->addWidget(m_hotkey);
    if (withAutoSwitch) {
        m_autoLabel = new QLabel(this);
        m_auto = new SettingsSwitch(this);
        top->addWidget(m_autoLabel);
        top->addWidget(m_auto);
        connect(m_auto, &SettingsSwitch::toggled, this, [this] {
            if (!m_setting) {
                emit edited();
            }
        });
    }
    top->addWidget(m_delete);
    rows()->addLayout(top);
    rows()->addWidget(m_prompt);

    connect(m_name, &QLineEdit::textEdited, this, &StyleCardFields::edited);
    connect(m_hotkey, &HotkeyRecorderField::hotkeyEdited, this, &StyleCardFields::edited);
    connect(m_prompt, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_setting) {
            emit edited();
        }
    });
    connect(m_delete, &QToolButton::clicked, this, &StyleCardFields::deleteRequested);
}

void StyleCardFields::setFields(const QString& name, const QString& hotkey, bool autoReplace,
                                const QString& prompt)
{
    m_setting = true;
    // Only what differs is written, so the text the user is typing in keeps its cursor.
    if (m_name->text() != name) {
        m_name->setText(name);
    }
    m_hotkey->setHotkey(hotkey);
    if (m_auto && m_auto->isChecked() != autoReplace) {
        m_auto->setChecked(autoReplace);
    }
    if (m_prompt->toPlainText() != prompt) {
        m_prompt->setPlainText(prompt);
    }
    m_setting = false;
}

void StyleCardFields::retranslate(UiLanguage language)
{
    m_name->setPlaceholderText(localized(language, "Name", "Название"));
    if (m_autoLabel) {
        m_autoLabel->setText(localized(language, "Auto", "Авто"));
    }
}

QString StyleCardFields::name() const
{
    return m_name->text();
}

QString StyleCardFields::hotkey() const
{
    return m_hotkey->hotkey();
}

bool StyleCardFields::autoReplace() const
{
    return m_auto && m_auto->isChecked();
}

QString StyleCardFields::prompt() const
{
    return m_prompt->toPlainText();
}
