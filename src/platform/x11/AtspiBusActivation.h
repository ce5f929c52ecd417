#pragma once

#include <chrono>
#include <optional>

// The desktop's switch for accessibility: the IsEnabled property of org.a11y.Status on the session bus's
// accessibility launcher (org.a11y.Bus at /org/a11y/bus). Toolkits (Qt, GTK, Chromium, Electron) read it
// when an application starts and only then put their trees on the accessibility bus; it is the desktop's
// counterpart of asking one application for its tree. Every call is bounded by callTimeout. GUI thread.
class AtspiBusActivation {
public:
    static constexpr std::chrono::milliseconds defaultCallTimeout{500};

    explicit AtspiBusActivation(std::chrono::milliseconds callTimeout = defaultCallTimeout)
        : m_callTimeout(callTimeout)
    {}

    // Whether accessibility is on; nullopt when no launcher answers on the session bus in time.
    std::optional<bool> isEnabled() const;
    // Turns accessibility on for the rest of the session and returns without waiting for the launcher; false
    // when there is no session bus to ask.
    bool enable() const;

private:
    std::chrono::milliseconds m_callTimeout;
};
