#pragma once

#include "platform/InputSourceProvider.h"

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

// Scripted input sources. Each source owns a key map from (virtual key code, shift) to the text that key
// types; the provider counts translations and selections and can refuse a number of selections.
class FakeInputSourceProvider : public InputSourceProvider {
public:
    struct Source {
        std::optional<QString> name;
        std::optional<QString> id;
        std::optional<PlatformInputSource::Type> type = PlatformInputSource::Type::keyboardLayout;
        bool hasKeyLayoutData = true;
        // slot(key code, shift) to the key's output.
        QHash<int, QString> keys;

        static int slot(int keyCode, bool shift) { return keyCode * 2 + (shift ? 1 : 0); }
        void setKey(int keyCode, bool shift, const QString& output)
        {
            keys.insert(slot(keyCode, shift), output);
        }
    };

    // A keyboard layout whose keys 0..N-1 type the characters of unshifted and shifted, in order.
    static Source layout(const QString& name, const QString& id, QStringView unshifted,
                         QStringView shifted = {});

    // Returns the index of the new source.
    int addSource(Source source);
    Source& source(int index) { return *m_sources[index]; }
    void removeAll() { m_sources.clear(); }

    // Another party selects the source: subscribers hear of a change.
    void setCurrent(std::optional<int> index)
    {
        const bool changed = index != m_current;
        m_current = index;
        if (changed) {
            m_changes.notify();
        }
    }
    std::optional<int> current() const { return m_current; }
    // The next `count` selections return `status` and change nothing.
    void failSelections(int count, std::int32_t status)
    {
        m_failuresLeft = count;
        m_failureStatus = status;
    }
    int selectCalls() const { return m_selectCalls; }
    int translateCalls() const { return m_translateCalls; }

    QList<PlatformInputSource> inputSources() override;
    std::optional<PlatformInputSource> currentSource() override;
    std::int32_t selectSource(const InputSourceRef& source) override;
    std::optional<QString> translateKey(const InputSourceRef& source, int keyCode, bool shift) override;
    ListenerSubscription subscribeToSourceChanges(std::function<void()> handler) override
    {
        return m_changes.subscribe(std::move(handler));
    }

private:
    PlatformInputSource describe(const std::shared_ptr<Source>& source) const;

    QList<std::shared_ptr<Source>> m_sources;
    std::optional<int> m_current;
    int m_failuresLeft = 0;
    std::int32_t m_failureStatus = 0;
    int m_selectCalls = 0;
    int m_translateCalls = 0;
    ListenerList<> m_changes;
};
