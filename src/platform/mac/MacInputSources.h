#pragma once

#include "platform/InputSourceProvider.h"

// The enabled Text Input Sources. Keys are translated on each source's own Unicode key layout; a change of
// the selected keyboard source is heard from the distributed notification the system posts for it,
// whichever application made it.
class MacInputSources : public InputSourceProvider {
public:
    MacInputSources();
    ~MacInputSources() override;
    MacInputSources(const MacInputSources&) = delete;
    MacInputSources& operator=(const MacInputSources&) = delete;

    QList<PlatformInputSource> inputSources() override;
    std::optional<PlatformInputSource> currentSource() override;
    std::int32_t selectSource(const InputSourceRef& source) override;
    std::optional<QString> translateKey(const InputSourceRef& source, int keyCode, bool shift) override;
    ListenerSubscription subscribeToSourceChanges(std::function<void()> handler) override;

private:
    // Its address is the observer the notification centre knows.
    ListenerList<> m_changes;
};
