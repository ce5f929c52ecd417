#pragma once

#include "hotkeys/HotkeyRecorder.h"

#include <QPushButton>
#include <memory>

class GlobalHotkeySuspension;

// The control in which the user presses a new shortcut: a button showing the stored hotkey in symbols.
// A click starts recording; while it records, one application-wide key filter takes every key press.
class HotkeyRecorderField : public QPushButton {
    Q_OBJECT
public:
    HotkeyRecorderField(GlobalHotkeySuspension* suspension, int width, QWidget* parent = nullptr);
    ~HotkeyRecorderField() override;

    const QString& hotkey() const { return m_hotkey; }
    // Shows a stored text; emits nothing, so a view can refresh it from the settings freely.
    void setHotkey(const QString& hotkey);
    bool isRecording() const { return m_recorder.isRecording(); }

signals:
    // The user recorded or cleared the hotkey; "Not assigned" when cleared.
    void hotkeyEdited(const QString& hotkey);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    class KeyFilter;
    void onRecordingChanged(bool recording);
    void keyPressed(const class QKeyEvent& event);

    HotkeyRecorder m_recorder;
    QString m_hotkey;
    // The one key monitor, held only while recording.
    std::unique_ptr<KeyFilter> m_keyFilter;
};
