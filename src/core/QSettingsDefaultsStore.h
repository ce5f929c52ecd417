#pragma once

#include "core/DefaultsStore.h"

#include <QSettings>
#include <QStringList>
#include <memory>

// QSettings-backed store: the user defaults domain on macOS, the per-user config directory elsewhere.
//
// QSettings keeps every value in memory and rewrites its whole file whenever any one changes, so a large
// blob (the clipboard history, up to a gigabyte) would be held twice and written again for every panel-size
// change. Keys named at construction therefore live in a file of their own next to the settings file, read
// only when asked for and written at once, crash-safely; a value still in the settings file from before is
// read from there and moved out at its next write.
class QSettingsDefaultsStore : public DefaultsStore {
    Q_OBJECT
public:
    // Uses the application's organisation and name, as QSettings does by default.
    explicit QSettingsDefaultsStore(const QStringList& keysInOwnFiles = {}, QObject* parent = nullptr);
    // Uses an explicit file, for tools and tests.
    QSettingsDefaultsStore(const QString& iniPath, const QStringList& keysInOwnFiles, QObject* parent);
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
    // The file that holds key, or empty when it lives in the settings file.
    QString ownFile(const QString& key) const;

    std::unique_ptr<QSettings> m_settings;
    QStringList m_keysInOwnFiles;
    // Whether the settings live in a file of their own that a cut-off write can be undone in.
    bool m_guarded = false;
};
