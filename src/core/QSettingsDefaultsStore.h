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
    ~QSettingsDefaultsStore() override;

    QVariant value(const QString& key) const override;
    bool contains(const QString& key) const override;
    void setValue(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;
    void sync() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void guardWrites();
    // Whether the file on disk holds exactly what the settings hold.
    bool fileMatches() const;

    std::unique_ptr<QSettings> m_settings;
    // Whether the settings live in a file of their own that a cut-off write can be undone in.
    bool m_guarded = false;
};
