#include "clipboard/ClipboardNotesService.h"

#include "core/AtomicFileWrite.h"
#include "core/Clock.h"
#include "core/DefaultsStore.h"

#include <QDir>
#include <QFile>
#include <QTextBoundaryFinder>
#include <QUuid>

namespace {

std::optional<QList<ClipboardNoteTab>> readTabs(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return ClipboardNoteTab::decodeList(file.readAll());
}

} // namespace

ClipboardNotesService::ClipboardNotesService(Clock& clock, DefaultsStore& defaults, QString storageDirectory,
                                             QObject* parent)
    : QObject(parent), m_clock(clock), m_defaults(defaults), m_directory(std::move(storageDirectory)),
      m_tabs(load())
{}

QList<ClipboardNoteTab> ClipboardNotesService::load() const
{
    const QDir directory(m_directory);
    if (auto tabs = readTabs(directory.filePath(fileName()))) {
        return *tabs;
    }
    if (auto tabs = readTabs(directory.filePath(backupFileName()))) {
        return *tabs;
    }
    const QVariant fallback = m_defaults.value(fallbackDefaultsKey());
    if (fallback.typeId() == QMetaType::QByteArray) {
        if (auto tabs = ClipboardNoteTab::decodeList(fallback.toByteArray())) {
            return *tabs;
        }
    }
    return {};
}

void ClipboardNotesService::setTabs(QList<ClipboardNoteTab> tabs)
{
    m_tabs = std::move(tabs);
    emit tabsChanged();
}

std::optional<ClipboardNoteTab> ClipboardNotesService::tab(const QString& id) const
{
    for (const ClipboardNoteTab& tab : m_tabs) {
        if (tab.id == id) {
            return tab;
        }
    }
    return std::nullopt;
}

ClipboardNoteTab* ClipboardNotesService::findTab(const QString& id)
{
    for (ClipboardNoteTab& tab : m_tabs) {
        if (tab.id == id) {
            return &tab;
        }
    }
    return nullptr;
}

QString ClipboardNotesService::newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

ClipboardNoteTab ClipboardNotesService::addTab(const QString& title)
{
    const QDateTime now = m_clock.now();
    ClipboardNoteTab tab{newId(), normalizedTitle(title, QStringLiteral("Notes")), {}, now, now};
    m_tabs.append(tab);
    save();
    return tab;
}

void ClipboardNotesService::renameTab(const QString& id, const QString& title)
{
    ClipboardNoteTab* tab = findTab(id);
    if (!tab) {
        return;
    }
    tab->title = normalizedTitle(title, tab->title);
    tab->updatedAt = m_clock.now();
    save();
}

std::optional<ClipboardNoteItem> ClipboardNotesService::addNote(const QString& tabId, const QString& text)
{
    ClipboardNoteTab* tab = findTab(tabId);
    const QString trimmed = text.trimmed();
    if (!tab || trimmed.isEmpty()) {
        return std::nullopt;
    }
    const QDateTime now = m_clock.now();
    ClipboardNoteItem note{newId(), trimmed, now, now};
    tab->notes.prepend(note);
    tab->updatedAt = m_clock.now();
    save();
    return note;
}

void ClipboardNotesService::updateNote(const QString& tabId, const QString& noteId, const QString& text)
{
    ClipboardNoteTab* tab = findTab(tabId);
    const QString trimmed = text.trimmed();
    if (!tab || trimmed.isEmpty()) {
        return;
    }
    for (ClipboardNoteItem& note : tab->notes) {
        if (note.id == noteId) {
            note.text = trimmed;
            note.updatedAt = m_clock.now();
            tab->updatedAt = m_clock.now();
            save();
            return;
        }
    }
}

void ClipboardNotesService::deleteNote(const QString& tabId, const QString& noteId)
{
    ClipboardNoteTab* tab = findTab(tabId);
    if (!tab) {
        return;
    }
    tab->notes.removeIf([&noteId](const ClipboardNoteItem& note) { return note.id == noteId; });
    tab->updatedAt = m_clock.now();
    save();
}

void ClipboardNotesService::deleteTab(const QString& id)
{
    m_tabs.removeIf([&id](const ClipboardNoteTab& tab) { return tab.id == id; });
    save();
}

void ClipboardNotesService::save()
{
    emit tabsChanged();
    const QByteArray data = ClipboardNoteTab::encodeList(m_tabs);
    const QDir directory(m_directory);
    const QString filePath = directory.filePath(fileName());
    const QString backupPath = directory.filePath(backupFileName());
    if (QDir().mkpath(m_directory)) {
        // The backup holds the state before this save and is made before the main file is touched; errors
        // here are ignored because the atomic write below never leaves a half-written main file.
        if (QFile::exists(filePath)) {
            QFile::remove(backupPath);
            QFile::copy(filePath, backupPath);
        }
        if (writeFileAtomically(filePath, data)) {
            return;
        }
    }
    m_defaults.setValue(fallbackDefaultsKey(), data);
    // The notes are the user's own work: they reach the disk now, not at the store's next convenience.
    m_defaults.sync();
}

QString ClipboardNotesService::normalizedTitle(const QString& title, const QString& fallback)
{
    QString trimmed = title.trimmed();
    if (trimmed.isEmpty()) {
        return fallback;
    }
    // Cut at a user-perceived character boundary, so an emoji or accent is never split.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, trimmed);
    for (int count = 0; count < ClipboardNoteTab::maximumTitleLength; ++count) {
        if (finder.toNextBoundary() < 0) {
            return trimmed;
        }
    }
    return trimmed.left(finder.position());
}
