#pragma once

#include "clipboard/ClipboardListEntry.h"

#include <QWidget>
#include <optional>

class QLabel;
class QPlainTextEdit;
class QHBoxLayout;

// The preview beside the list: the whole text of the one selected history item or note, its character
// count and the actions on it. GUI thread.
class ClipboardSidePreview : public QWidget {
    Q_OBJECT
public:
    struct Action {
        QString symbol;
        QString label;
        bool destructive = false;
    };

    explicit ClipboardSidePreview(QWidget* parent = nullptr);

    // Title, the actions and the text for no entry; the actions are rebuilt only when they change.
    void setFrame(const QString& title, const QList<Action>& actions, const QString& emptyText);
    // Loads the entry's full text unless it is shown already.
    void showEntry(const std::optional<ClipboardListEntry>& entry, const QString& countText, double fontSize);

signals:
    void actionTriggered(int action);

private:
    QLabel* m_title;
    QLabel* m_count;
    QLabel* m_empty;
    QPlainTextEdit* m_text;
    QWidget* m_actionsRow;
    QHBoxLayout* m_actions;
    QList<Action> m_shownActions;
    std::optional<ClipboardListEntry> m_entry;
};
