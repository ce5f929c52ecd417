#include "core/QSettingsDefaultsStore.h"

#include "core/AtomicFileWrite.h"

#include <QDataStream>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <cstdio>
#include <unistd.h>

QSettingsDefaultsStore::QSettingsDefaultsStore(const QStringList& keysInOwnFiles, QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>()), m_keysInOwnFiles(keysInOwnFiles)
{
    guardWrites();
}

QSettingsDefaultsStore::QSettingsDefaultsStore(const QString& iniPath, const QStringList& keysInOwnFiles,
                                               QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>(iniPath, QSettings::IniFormat)),
      m_keysInOwnFiles(keysInOwnFiles)
{
    guardWrites();
}

QSettingsDefaultsStore::~QSettingsDefaultsStore()
{
    // QSettings would write what is pending on its own way out, unguarded.
    sync();
}

void QSettingsDefaultsStore::guardWrites()
{
    // Where the settings are a file (not the platform's own defaults database), every write of it goes
    // through sync() below, including the ones QSettings schedules itself after a change.
    m_guarded = m_settings->format() == QSettings::IniFormat ||
                QFileInfo(m_settings->fileName()).suffix() == QStringLiteral("conf");
    if (m_guarded) {
        m_settings->installEventFilter(this);
    }
}

bool QSettingsDefaultsStore::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_settings.get() && event->type() == QEvent::UpdateRequest) {
        sync();
        return true;
    }
    return DefaultsStore::eventFilter(watched, event);
}

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
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << value;
    }
    // A failed write (a full disk, say) leaves the last whole file; storage failures go unreported.
    if (writeFileAtomically(path, bytes)) {
        m_settings->remove(key);
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

void QSettingsDefaultsStore::sync()
{
    if (!m_guarded) {
        m_settings->sync();
        return;
    }
    // WORKAROUND: QSettings replaces its file in one rename, but it commits even when its buffered write
    // came up short (a full disk), putting a cut-off file in place of a whole one and reporting no error. The
    // file before the write is kept by a second name (a hard link costs no space), and comes back when the
    // file written does not hold what the settings hold. What could not be written stays pending.
    const QByteArray file = QFile::encodeName(m_settings->fileName());
    const QByteArray previous = file + ".previous";
    ::unlink(previous.constData());
    const bool kept = ::link(file.constData(), previous.constData()) == 0;
    m_settings->sync();
    if (!fileMatches()) {
        if (kept) {
            std::rename(previous.constData(), file.constData());
        } else {
            ::unlink(file.constData());
        }
    }
    ::unlink(previous.constData());
}

bool QSettingsDefaultsStore::fileMatches() const
{
    // Read through a name of its own: QSettings would answer a name it knows from memory.
    const QString fileName = m_settings->fileName();
    const QString check = fileName + QStringLiteral(".check-") + QUuid::createUuid().toString(QUuid::Id128);
    if (::link(QFile::encodeName(fileName).constData(), QFile::encodeName(check).constData()) != 0) {
        return true; // no file: nothing cut off
    }
    bool matches = true;
    {
        const QSettings written(check, QSettings::IniFormat);
        const QStringList keys = m_settings->allKeys();
        matches = written.allKeys().size() == keys.size();
        for (qsizetype i = 0; matches && i < keys.size(); ++i) {
            matches = written.value(keys[i]).toString() == m_settings->value(keys[i]).toString();
        }
    }
    QFile::remove(check);
    return matches;
}
