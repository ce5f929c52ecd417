#include "core/QSettingsDefaultsStore.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

QSettingsDefaultsStore::QSettingsDefaultsStore(const QStringList& keysInOwnFiles, QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>()), m_keysInOwnFiles(keysInOwnFiles)
{}

QSettingsDefaultsStore::QSettingsDefaultsStore(const QString& iniPath, const QStringList& keysInOwnFiles,
                                               QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>(iniPath, QSettings::IniFormat)),
      m_keysInOwnFiles(keysInOwnFiles)
{}

QString QSettingsDefaultsStore::ownFile(const QString& key) const
{
    if (!m_keysInOwnFiles.contains(key)) {
        return {};
    }
    return QFileInfo(m_settings->fileName()).dir().filePath(key + QStringLiteral(".dat"));
}

QVariant QSettingsDefaultsStore::value(const QString& key) const
{
    const QString path = ownFile(key);
    if (path.isEmpty()) {
        return m_settings->value(key);
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return m_settings->value(key);
    }
    QDataStream in(&file);
    QVariant stored;
    in >> stored;
    // A damaged file reads as an absent value; the reader's fallback takes over.
    return in.status() == QDataStream::Ok ? stored : QVariant();
}

bool QSettingsDefaultsStore::contains(const QString& key) const
{
    const QString path = ownFile(key);
    return (!path.isEmpty() && QFile::exists(path)) || m_settings->contains(key);
}

void QSettingsDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    const QString path = ownFile(key);
    if (path.isEmpty()) {
        m_settings->setValue(key, value);
        emit changed(key);
        return;
    }
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        QDataStream out(&file);
        out << value;
        // A failed write (a full disk, say) leaves the last whole file; storage failures go unreported.
        if (out.status() == QDataStream::Ok && file.commit()) {
            m_settings->remove(key);
        }
    }
    emit changed(key);
}

void QSettingsDefaultsStore::remove(const QString& key)
{
    if (!contains(key)) {
        return;
    }
    const QString path = ownFile(key);
    if (!path.isEmpty()) {
        QFile::remove(path);
    }
    m_settings->remove(key);
    emit changed(key);
}
