#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

// The per-user key-value store behind every "mivora.*" key. Values are strings, booleans, integers or data
// blobs (QByteArray). All members are for the GUI thread and do not block for long.
class DefaultsStore : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~DefaultsStore() override = default;

    // The stored value, or an invalid QVariant when the key is absent.
    virtual QVariant value(const QString& key) const = 0;
    // Whether any value is stored under the key.
    virtual bool contains(const QString& key) const = 0;
    // Stores the value; emits changed().
    virtual void setValue(const QString& key, const QVariant& value) = 0;
    // Removes the key; emits changed() if it was there.
    virtual void remove(const QString& key) = 0;
    // Writes what is pending to permanent storage now, for a process about to end without its destructors.
    // A failure is swallowed; what could not be written stays pending for the next try.
    virtual void sync() = 0;

signals:
    void changed(const QString& key);
};
