#pragma once

#include "platform/GlobalHotkeyRegistrar.h"

#include <QList>

// Remembers what was claimed, refuses the chords a test names, and presses chords on request.
class FakeHotkeyRegistrar : public GlobalHotkeyRegistrar {
public:
    struct Registration {
        quint32 id;
        quint16 macKeyCode;
        HotkeyModifiers modifiers;
        bool operator==(const Registration&) const = default;
    };

    qint32 installPressHandler(PressHandler handler) override
    {
        if (m_installStatus == 0) {
            m_handler = std::move(handler);
        }
        return m_installStatus;
    }
    void removePressHandler() override { m_handler = nullptr; }

    qint32 registerHotkey(quint32 id, quint16 macKeyCode, HotkeyModifiers modifiers) override
    {
        for (const Refusal& refusal : std::as_const(m_refusals)) {
            if (refusal.macKeyCode == macKeyCode && refusal.modifiers == modifiers) {
                return refusal.status;
            }
        }
        m_registrations.append({id, macKeyCode, modifiers});
        return 0;
    }
    void unregisterAll() override
    {
        m_registrations.clear();
        ++m_unregisterAllCount;
    }

    // Every later registerHotkey of this chord answers status.
    void refuse(quint16 macKeyCode, HotkeyModifiers modifiers, qint32 status)
    {
        m_refusals.append({macKeyCode, modifiers, status});
    }
    void failInstallWith(qint32 status) { m_installStatus = status; }

    // Delivers a press of id as the platform would, whether or not the id is still registered.
    void press(quint32 id) const
    {
        if (m_handler) {
            m_handler(id);
        }
    }
    // Presses the chord; false when nothing holds it.
    bool pressChord(quint16 macKeyCode, HotkeyModifiers modifiers) const
    {
        for (const Registration& registration : m_registrations) {
            if (registration.macKeyCode == macKeyCode && registration.modifiers == modifiers) {
                press(registration.id);
                return true;
            }
        }
        return false;
    }

    const QList<Registration>& registrations() const { return m_registrations; }
    bool hasPressHandler() const { return static_cast<bool>(m_handler); }
    int unregisterAllCount() const { return m_unregisterAllCount; }

private:
    struct Refusal {
        quint16 macKeyCode;
        HotkeyModifiers modifiers;
        qint32 status;
    };

    PressHandler m_handler;
    QList<Registration> m_registrations;
    QList<Refusal> m_refusals;
    qint32 m_installStatus = 0;
    int m_unregisterAllCount = 0;
};
