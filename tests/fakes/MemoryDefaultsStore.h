#pragma once

#include "core/DefaultsStore.h"

#include <QHash>

// In-memory defaults store; values keep the exact QVariant type they were written with.
class MemoryDefaultsStore : public DefaultsStore {
    Q_OBJECT
public:
    using DefaultsStore::DefaultsStore;

    QVariant value(const QString& key) const override { return m_values.value(key); }
    bool contains(const QString& key) const override { return m_values.contains(key); }
    void setValue(const QString& key, const QVariant& value) override
    {
        m_values.insert(key, value);
        ++m_writes;
        emit changed(key);
    }
    void remove(const QString& key) override
    {
        if (m_values.remove(key) > 0) {
            emit changed(key);
        }
    }

    void sync() override { ++m_syncs; }

    int writeCount() const { return m_writes; }
    int syncCount() const { return m_syncs; }

private:
    QHash<QString, QVariant> m_values;
    int m_writes = 0;
    int m_syncs = 0;
};
