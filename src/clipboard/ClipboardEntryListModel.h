#pragma once

#include "clipboard/ClipboardListEntry.h"

#include <QAbstractListModel>
#include <optional>

// The rows the panel shows for the filtered history or notes. Rows hand out a bounded prefix of their text,
// never the whole of it, so a history of long texts costs the view nothing per row. GUI thread.
class ClipboardEntryListModel : public QAbstractListModel {
    Q_OBJECT
public:
    enum Role { idRole = Qt::UserRole + 1, charsRole, selectedRole };
    // What a row shows at most: four lines of this many characters in all.
    static constexpr int rowLines = 4;
    static constexpr int rowPrefixLength = 600;

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    // DisplayRole: the row's prefix; idRole, charsRole, selectedRole as named.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // Replaces the rows; a list equal to the present one changes nothing.
    void setEntries(QList<ClipboardListEntry> entries);
    const QList<ClipboardListEntry>& entries() const { return m_entries; }
    // Marks the row with this id as selected (none when absent) and repaints only the two rows concerned.
    void setSelectedId(const std::optional<QString>& id);
    // The row of the entry with this id, or -1.
    int rowOf(const QString& id) const;

    // The start of text as a row shows it: at most rowLines lines and rowPrefixLength characters.
    static QString rowPrefix(const QString& text);

private:
    QList<ClipboardListEntry> m_entries;
    std::optional<QString> m_selectedId;
};
