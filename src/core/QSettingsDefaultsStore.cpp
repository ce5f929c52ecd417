#include "core/QSettingsDefaultsStore.h"

#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <cstdio>
#include <unistd.h>

QSettingsDefaultsStore::QSettingsDefaultsStore(QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>())
{
    guardWrites();
}

QSettingsDefaultsStore::QSettingsDefaultsStore(const QString& iniPath, QObject* parent)
    : DefaultsStore(parent), m_settings(std::make_unique<QSettings>(iniPath, QSettings::IniFormat))
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
