#pragma once

#include "clipboard/ClipboardHistoryItem.h"

#include <QObject>

class ClipboardHistoryService;
class MivoraAppState;

// The Clipboard page: the history switch, the limit stepper, the kept days, clearing, and the recent items
// with put-back and delete. Every edit goes through the state's settings. GUI thread.
class ClipboardSettingsModel : public QObject {
    Q_OBJECT
public:
    // The stepper's range, narrower than what loading accepts: a stored value outside it is shown and kept
    // until the user steps.
    static constexpr int stepperMinimum = 10;
    static constexpr int stepperMaximum = 500;

    ClipboardSettingsModel(MivoraAppState& state, ClipboardHistoryService& history,
                           QObject* parent = nullptr);

    bool historyEnabled() const;
    void setHistoryEnabled(bool enabled);
    // "History limit: 100" in the interface language, with the stored value.
    QString limitText() const;
    // Whether one step in direction (-1 or +1) changes the limit.
    bool canStep(int direction) const;
    // One step of 1 in direction, into the stepper's range.
    void step(int direction);
    // The stored day count, with "forever" in the interface language.
    QString daysText() const;
    void clearHistory();

    const QList<ClipboardHistoryItem>& items() const;
    // Puts the item's text back on the clipboard and reports it as pasted.
    void putBack(const QString& itemId);
    void remove(const QString& itemId);

signals:
    void settingsChanged();
    void itemsChanged();

private:
    MivoraAppState& m_state;
    ClipboardHistoryService& m_history;
};
