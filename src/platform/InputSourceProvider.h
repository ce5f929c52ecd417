#pragma once

#include "platform/InputSourceRef.h"
#include "platform/ListenerList.h"
#include "platform/PlatformInputSource.h"

#include <QList>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

// The platform's keyboard input sources. Key codes are macOS virtual key codes on every platform.
class InputSourceProvider {
public:
    virtual ~InputSourceProvider() = default;

    // Enabled input sources in the platform's order; empty where the platform has none. Blocking, GUI thread.
    virtual QList<PlatformInputSource> inputSources() = 0;
    // The active keyboard source, absent if the platform cannot tell. Blocking, GUI thread.
    virtual std::optional<PlatformInputSource> currentSource() = 0;
    // Makes the source active, once, without retrying; 0 on success, else the platform's status. GUI thread.
    virtual std::int32_t selectSource(const InputSourceRef& source) = 0;
    // Output of one key press (virtual key code 0..127, with or without Shift, no dead-key state) on the
    // source's layout; absent if the key gives nothing or cannot be translated. Blocking, GUI thread.
    virtual std::optional<QString> translateKey(const InputSourceRef& source, int keyCode, bool shift) = 0;
    // Calls handler on the GUI thread each time the active keyboard source changes, whoever changed it, for
    // as long as the subscription lives; never where the platform cannot tell. Non-blocking.
    [[nodiscard]] virtual ListenerSubscription subscribeToSourceChanges(std::function<void()> handler) = 0;
};
