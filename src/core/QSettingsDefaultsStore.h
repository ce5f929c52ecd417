#pragma once

#include "core/DefaultsStore.h"

#include <QSettings>
#include <memory>

// QSettings-backed store: the user defaults domain on macOS, the per-user config directory elsewhere.
class QSettingsDefaultsStore : public DefaultsStore {
    Q_OBJECT
public:
    // Uses the application's organisation and name, as QSettings does by default.
    explicit QSettingsDefaultsStore(QObject* parent = nullptr);
    // Uses an explicit file, for tools and tests.
    QSettingsDefaultsStore(const QString& iniPath, QObject* parent);

    QVariant value(const QString& key) const override;
    bool contains(const QString& key) const override;
    void setValue(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;
    void sync() override;

private:
    std::unique_ptr<QSettings> m_settings;
};
