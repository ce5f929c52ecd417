#include "core/QSettingsDefaultsStore.h"

QSettingsDefaultsStore::QSettingsDefaultsStore(QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>())
{}

QSettingsDefaultsStore::QSettingsDefaultsStore(const QString& iniPath, QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>(iniPath, QSettings::IniFormat))
{}

QVariant QSettingsDefaultsStore::value(const QString& key) const
{
    return m_settings->value(key);
}

bool QSettingsDefaultsStore::contains(const QString& key) const
{
    return m_settings->contains(key);
}

void QSettingsDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    m_settings->setValue(key, value);
    emit changed(key);
}

void QSettingsDefaultsStore::remove(const QString& key)
{
    if (!m_settings->contains(key)) {
        return;
    }
    m_settings->remove(key);
    emit changed(key);
}

void QSettingsDefaultsStore::sync()
{
    // QSettings keeps what it could not write and tries again at its next sync; its write replaces the file
    // in one rename, so a failed or cut-off one leaves the last whole file.
    m_settings->sync();
}
