#pragma once

#include "clipboard/ClipboardHistoryItem.h"
#include "core/ClipboardCaptureControl.h"
#include "core/ClipboardHistoryControl.h"
#include "core/Clock.h"
#include "core/MivoraSettings.h"

#include <QObject>
#include <QSet>
#include <qcoro/qcorotask.h>

class DefaultsStore;
class Pasteboard;

// Keeps a bounded, persisted, newest-first list of the plain texts that passed through the clipboard. It
// polls the clipboard's change count; transient uses of the clipboard by the program itself are hidden by
// suppressCapture and finishTransientPasteboardUse. GUI thread only.
class ClipboardHistoryService : public QObject,
                                public ClipboardHistoryControl,
                                public ClipboardCaptureControl {
    Q_OBJECT
public:
    static constexpr Clock::Duration pollInterval{700};
    static constexpr int minimumLimit = 10;
    static constexpr int maximumLimit = 1000;

    // Loads the stored items and takes the clipboard's present state as already seen (its text as soon as
    // its owner answers).
    ClipboardHistoryService(Pasteboard& pasteboard, Clock& clock, DefaultsStore& defaults,
                            QObject* parent = nullptr);

    // Follows appState's settings (anything with `const MivoraSettings& settings() const` and a
    // settingsChanged() signal) and starts polling.
    template <typename AppState> void attach(AppState& appState)
    {
        connect(&appState, &AppState::settingsChanged, this,
                [this, &appState] { applySettings(appState.settings()); });
        applySettings(appState.settings());
        start();
    }
    // Replaces the settings copy and applies a lowered limit or day count at once.
    void applySettings(const MivoraSettings& settings);
    const MivoraSettings& settings() const { return m_settings; }

    // Starts the repeating poll; a second call does nothing. There is no stop: turning history off only
    // makes the poll return.
    void start();
    bool isStarted() const { return m_timer.isActive(); }
    // Looks at the change count and, after a change, reads the clipboard without blocking.
    void poll();
    // Takes one text into the history, subject to the settings, the suppression window and the last text.
    void record(const QString& text);

    // No capture until now + duration; never shortens a window already running.
    void suppressCapture(Clock::Duration duration) override;
    // Ends a transient use: whatever it left on the clipboard counts as seen (its text as soon as its owner
    // answers).
    void finishTransientPasteboardUse() override;

    const QList<ClipboardHistoryItem>& items() const { return m_items; }
    // Removes every item with this id and saves.
    void removeItem(const QString& id);
    // Removes every item with one of these ids and saves once.
    void removeItems(const QSet<QString>& ids);
    // Puts the text of the item with this id back on the clipboard; false when there is no such item.
    bool putBack(const QString& id);
    void clearHistory() override;
    void pruneAndSave();
    void save();

    static QString storageKey() { return QStringLiteral("mivora.clipboardItems.native"); }
    // Whether the clipboard's types mark it as a password or other contents clipboard managers must skip.
    static QCoro::Task<bool> isConcealed(Pasteboard& pasteboard, QStringList types);

signals:
    void itemsChanged();

private:
    QCoro::Task<> readChange();
    // Takes the clipboard's present text, when it has one, as the last text seen.
    QCoro::Task<> adoptPresentText();
    QList<ClipboardHistoryItem> load() const;
    std::optional<QDateTime> cutOff() const;

    Pasteboard& m_pasteboard;
    Clock& m_clock;
    DefaultsStore& m_defaults;
    QList<ClipboardHistoryItem> m_items;
    MivoraSettings m_settings;
    ClockTimer m_timer;
    qint64 m_lastChangeCount = 0;
    QString m_lastText;
    Clock::Duration m_suppressUntil = Clock::Duration::min();
    // Clipboard reads still waiting for the owner's answer.
    int m_readsInFlight = 0;
    // Moves with every record and every end of a transient use; a read that finds it moved on drops its
    // result, since what it read may be out of date.
    quint64 m_epoch = 0;
};
