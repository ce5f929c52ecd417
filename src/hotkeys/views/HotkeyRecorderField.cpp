#include "hotkeys/views/HotkeyRecorderField.h"

#include "hotkeys/QtKeyEventTranslator.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

// The native code of a key event means different things per platform plugin.
QtKeyEventTranslator::Source translatorSource()
{
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("xcb") || platform == QLatin1String("wayland")) {
        return QtKeyEventTranslator::Source::Xkb;
    }
    if (platform == QLatin1String("cocoa")) {
        return QtKeyEventTranslator::Source::Mac;
    }
    return QtKeyEventTranslator::Source::Generic;
}

} // namespace

// Takes every key press of the application while recording, wherever the focus is, so that a chord can
// neither reach another control nor trigger a window shortcut.
class HotkeyRecorderField::KeyFilter : public QObject {
public:
    explicit KeyFilter(HotkeyRecorderField& field) : m_field(field) { qApp->installEventFilter(this); }
    ~KeyFilter() override { qApp->removeEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride:
        case QEvent::KeyRelease:
            return true;
        case QEvent::KeyPress:
            // Auto-repeat of a held chord would record it again after it stopped recording.
            if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
                m_field.keyPressed(*static_cast<QKeyEvent*>(event));
            }
            return true;
        default:
            return false;
        }
    }

private:
    HotkeyRecorderField& m_field;
};

HotkeyRecorderField::HotkeyRecorderField(GlobalHotkeySuspension* suspension, int width, QWidget* parent)
    : QPushButton(parent), m_recorder(suspension), m_hotkey(QStringLiteral("Not assigned"))
{
    setFixedWidth(width);
    setToolTip(HotkeyRecorder::helpText());
    setText(m_recorder.buttonText(m_hotkey));
    connect(this, &QPushButton::clicked, &m_recorder, &HotkeyRecorder::beginRecording);
    connect(&m_recorder, &HotkeyRecorder::recordingChanged, this, &HotkeyRecorderField::onRecordingChanged);
    connect(&m_recorder, &HotkeyRecorder::recorded, this, [this](const QString& hotkey) {
        m_hotkey = hotkey;
        emit hotkeyEdited(hotkey);
    });
}

HotkeyRecorderField::~HotkeyRecorderField()
{
    m_recorder.stopRecording();
}

void HotkeyRecorderField::setHotkey(const QString& hotkey)
{
    m_hotkey = hotkey;
    setText(m_recorder.buttonText(m_hotkey));
}

void HotkeyRecorderField::onRecordingChanged(bool recording)
{
    if (recording) {
        if (!m_keyFilter) {
            m_keyFilter = std::make_unique<KeyFilter>(*this);
        }
        setDown(true);
    } else {
        m_keyFilter.reset();
        setDown(false);
    }
    setText(m_recorder.buttonText(m_hotkey));
}

void HotkeyRecorderField::keyPressed(const QKeyEvent& event)
{
    const QtKeyEventTranslator translator(translatorSource());
    const quint32 nativeCode = translatorSource() == QtKeyEventTranslator::Source::Mac
                                   ? event.nativeVirtualKey()
                                   : event.nativeScanCode();
    m_recorder.handle(
        translator.translate(Qt::Key(event.key()), event.modifiers(), nativeCode, event.text()));
}

void HotkeyRecorderField::hideEvent(QHideEvent* event)
{
    m_recorder.stopRecording();
    QPushButton::hideEvent(event);
}
