#pragma once

#include "core/UiLanguage.h"
#include "shell/settings/views/SettingsCard.h"

class GlobalHotkeySuspension;
class HotkeyRecorderField;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QToolButton;
class SettingsSwitch;

// The fields shared by the cards of rewrite styles and reply styles: a name, a hotkey recorder, an optional
// "Auto" switch, a delete button and the prompt. Setting the fields from a style never announces an edit;
// every change by the user does, at each keystroke.
class StyleCardFields : public SettingsCard {
    Q_OBJECT
public:
    StyleCardFields(GlobalHotkeySuspension* hotkeys, int recorderWidth, bool withAutoSwitch,
                    QWidget* parent = nullptr);

    void setFields(const QString& name, const QString& hotkey, bool autoReplace, const QString& prompt);
    void retranslate(UiLanguage language);

    QString name() const;
    QString hotkey() const;
    bool autoReplace() const;
    QString prompt() const;

signals:
    void edited();
    void deleteRequested();

private:
    QLineEdit* m_name = nullptr;
    HotkeyRecorderField* m_hotkey = nullptr;
    QLabel* m_autoLabel = nullptr;
    SettingsSwitch* m_auto = nullptr;
    QToolButton* m_delete = nullptr;
    QPlainTextEdit* m_prompt = nullptr;
    bool m_setting = false;
};
