#pragma once

#include "clipboard/ClipboardNoteTab.h"

#include <QObject>

class Clock;
class DefaultsStore;

// The user's notes in tabs. Every change is saved at once, synchronously, by a write built to survive a
// crash, a damaged file and an unwritable disk: the previous file is rotated into a backup before an atomic
// replace, and when the folder can't be written the data goes to the defaults store. GUI thread only.
class ClipboardNotesService : public QObject {
    Q_OBJECT
public:
    // Loads the tabs from storageDirectory (created on the first save): the main file, else the backup,
    // else the fallback value, else none.
    ClipboardNotesService(Clock& clock, DefaultsStore& defaults, QString storageDirectory,
                          QObject* parent = nullptr);

    const QList<ClipboardNoteTab>& tabs() const { return m_tabs; }
    // Replaces the whole list, as the panel does when it deletes a tab; call save() after.
    void setTabs(QList<ClipboardNoteTab> tabs);
    std::optional<ClipboardNoteTab> tab(const QString& id) const;

    ClipboardNoteTab addTab(const QString& title);
    // A blank title keeps the present one; the tab is still touched and saved.
    void renameTab(const QString& id, const QString& title);
    // nullopt, and no change, for an unknown tab or a blank text.
    std::optional<ClipboardNoteItem> addNote(const QString& tabId, const QString& text);
    // A note can't be emptied by editing: blank text changes nothing.
    void updateNote(const QString& tabId, const QString& noteId, const QString& text);
    // The tab is touched and saved even when no note matched.
    void deleteNote(const QString& tabId, const QString& noteId);
    // Removes every tab with this id and saves.
    void deleteTab(const QString& id);

    void save();

    // Trimmed; the fallback when that is empty, else its first 32 characters.
    static QString normalizedTitle(const QString& title, const QString& fallback);

    static QString fileName() { return QStringLiteral("clipboard-notes.json"); }
    static QString backupFileName() { return QStringLiteral("clipboard-notes.backup.json"); }
    static QString fallbackDefaultsKey() { return QStringLiteral("mivora.clipboardNotes.fallback"); }
    // The folder under the per-user data directory that holds the notes files.
    static QString folderName() { return QStringLiteral("ai.mivora.native"); }

signals:
    void tabsChanged();

private:
    QList<ClipboardNoteTab> load() const;
    ClipboardNoteTab* findTab(const QString& id);
    static QString newId();

    Clock& m_clock;
    DefaultsStore& m_defaults;
    QString m_directory;
    QList<ClipboardNoteTab> m_tabs;
};
