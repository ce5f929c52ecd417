#include "HeldChord.h"

#include "EventLoopWait.h"

using namespace std::chrono_literals;

HeldChord::HeldChord(X11TestClient& keyboard, QStringList modifiers, QString key,
                     std::chrono::milliseconds hold, std::chrono::milliseconds modifierGap)
    : m_keyboard(keyboard), m_modifiers(std::move(modifiers)), m_key(std::move(key)), m_hold(hold),
      m_modifierGap(modifierGap)
{
    m_release.setSingleShot(true);
    // A coarse timer may fire a few milliseconds late, which would lengthen the hold being measured.
    m_release.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_release, &QTimer::timeout, [this] { release(); });
}

HeldChord::~HeldChord()
{
    if (m_down) {
        release();
    }
}

void HeldChord::pressModifiers()
{
    m_down = true;
    for (const QString& modifier : m_modifiers) {
        m_keyboard.press(modifier);
        pauseFor(m_modifierGap);
    }
}

void HeldChord::pressKey()
{
    m_down = true;
    m_keyboard.press(m_key);
    m_release.start(m_hold);
}

bool HeldChord::waitReleased()
{
    return spinUntil([this] { return !m_down; }, m_hold + 1s);
}

void HeldChord::release()
{
    m_release.stop();
    m_keyboard.release(m_key);
    for (const QString& modifier : m_modifiers) {
        m_keyboard.release(modifier);
    }
    m_down = false;
}
