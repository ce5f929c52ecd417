#pragma once

#include "hotkeys/HotkeyKeyEvent.h"

#include <QObject>
#include <QString>

class GlobalHotkeySuspension;

// The behaviour of the hotkey recorder control: idle or recording; while recording every key-down goes to
// handle, and the program's own global chords are suspended so that pressing one records it. GUI thread.
class HotkeyRecorder : public QObject {
    Q_OBJECT
public:
    // suspension may be null where no global hotkeys are in force (tests, the command line).
    explicit HotkeyRecorder(GlobalHotkeySuspension* suspension = nullptr, QObject* parent = nullptr);
    ~HotkeyRecorder() override;

    bool isRecording() const { return m_recording; }
    // Starts recording; ignored while recording already.
    void beginRecording();
    // Stops recording without recording anything; ignored when idle.
    void stopRecording();
    // One key-down while recording: Escape cancels, Delete or Forward Delete clears, a chord with a name and
    // a modifier is recorded; anything else is ignored and recording goes on. Ignored when idle.
    void handle(const HotkeyKeyEvent& event);

    // The text the control shows for a stored hotkey, or the prompt while recording.
    QString buttonText(const QString& hotkey) const;
    static QString helpText();

signals:
    void recordingChanged(bool recording);
    // A new stored text, "Not assigned" when cleared. Emitted before recording stops.
    void recorded(const QString& hotkey);

private:
    GlobalHotkeySuspension* m_suspension;
    bool m_recording = false;
};
