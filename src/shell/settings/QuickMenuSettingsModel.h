#pragma once

#include <QStringList>

class MivoraAppState;

// The quick menu's list of actions as the settings window edits it: which actions exist, in what order,
// and which of them are on. The order is kept for every action, so switching one off and on again puts it
// back in its place.
class QuickMenuSettingsModel {
public:
    explicit QuickMenuSettingsModel(MivoraAppState& appState) : m_appState(appState) {}

    // "ai", "translate", a "style:<id>" for every rewrite style but translate, "clipboard", "layout".
    QStringList availableActionIds() const;
    // The stored order, normalised, of the available ids without duplicates, then the available ids it
    // lacks, in the order of availableActionIds.
    QStringList orderedActions() const;
    bool isEnabled(const QString& id) const;
    // Switches the action on or off in the menu; the enabled list is kept sorted by orderedActions. One save.
    void setAction(const QString& id, bool enabled);
    // Swaps the row at index with its neighbour above (-1) or below (+1); nothing at either end. One save.
    void moveAction(int index, int direction);

private:
    // ids sorted by their position in order; ids not in order go last, in their own order.
    static QStringList sortedBy(const QStringList& ids, const QStringList& order);

    MivoraAppState& m_appState;
};
