#include "hotkeys/HotkeyRecorder.h"

#include "hotkeys/GlobalHotkeySuspension.h"
#include "hotkeys/HotkeyFormatter.h"
#include "hotkeys/ParsedHotkey.h"

HotkeyRecorder::HotkeyRecorder(GlobalHotkeySuspension* suspension, QObject* parent)
    : QObject(parent), m_suspension(suspension)
{}

HotkeyRecorder::~HotkeyRecorder()
{
    // A control torn down mid-recording must not leave the program's hotkeys switched off.
    if (m_recording && m_suspension) {
        m_suspension->resumeGlobalHotkeys();
    }
}

void HotkeyRecorder::beginRecording()
{
    if (m_recording) {
        return;
    }
    m_recording = true;
    if (m_suspension) {
        m_suspension->suspendGlobalHotkeys();
    }
    emit recordingChanged(true);
}

void HotkeyRecorder::stopRecording()
{
    if (!m_recording) {
        return;
    }
    m_recording = false;
    if (m_suspension) {
        m_suspension->resumeGlobalHotkeys();
    }
    emit recordingChanged(false);
}

void HotkeyRecorder::handle(const HotkeyKeyEvent& event)
{
    if (!m_recording) {
        return;
    }
    if (event.keyCode == MacKeyCode::escape) {
        stopRecording();
        return;
    }
    if (event.keyCode == MacKeyCode::deleteBackward || event.keyCode == MacKeyCode::deleteForward) {
        emit recorded(ParsedHotkey::notAssigned());
        stopRecording();
        return;
    }
    if (const auto hotkey = HotkeyFormatter::capture(event)) {
        emit recorded(*hotkey);
        stopRecording();
    }
}

QString HotkeyRecorder::buttonText(const QString& hotkey) const
{
    return m_recording ? QStringLiteral("Press shortcut...") : HotkeyFormatter::display(hotkey);
}

QString HotkeyRecorder::helpText()
{
    return QStringLiteral("Click, then press a shortcut. Escape cancels. Delete clears.");
}
