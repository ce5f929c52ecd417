#pragma once

#include "X11TestClient.h"

#include <QStringList>
#include <QTimer>
#include <chrono>

// A chord as a person plays it, from a second client of the server: the modifiers go down one after another
// with a gap, the key stays down for the hold, then the key and the modifiers come up while the event loop
// runs. Keys still down when this object goes come up then.
class HeldChord {
public:
    HeldChord(X11TestClient& keyboard, QStringList modifiers, QString key, std::chrono::milliseconds hold,
              std::chrono::milliseconds modifierGap);
    ~HeldChord();
    HeldChord(const HeldChord&) = delete;
    HeldChord& operator=(const HeldChord&) = delete;

    // Presses the modifiers in order, pausing for the gap after each.
    void pressModifiers();
    // Presses the key; the release follows once the hold has passed, so the caller keeps the event loop
    // running (timing what the press does meanwhile).
    void pressKey();
    // Waits until every key is up again; false when the release did not come within a second of the hold.
    bool waitReleased();

private:
    void release();

    X11TestClient& m_keyboard;
    QStringList m_modifiers;
    QString m_key;
    std::chrono::milliseconds m_hold;
    std::chrono::milliseconds m_modifierGap;
    QTimer m_release;
    bool m_down = false;
};
