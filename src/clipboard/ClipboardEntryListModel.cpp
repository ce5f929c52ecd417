#include "clipboard/ClipboardEntryListModel.h"

int ClipboardEntryListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

QVariant ClipboardEntryListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_entries.size()) {
        return {};
    }
    const ClipboardListEntry& entry = m_entries.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return rowPrefix(entry.text);
    case idRole:
        return entry.id;
    case charsRole:
        return entry.chars;
    case selectedRole:
        return m_selectedId == entry.id;
    default:
        return {};
    }
}

void ClipboardEntryListModel::setEntries(QList<ClipboardListEntry> entries)
{
    if (entries == m_entries) {
        return;
    }
    beginResetModel();
    m_entries = std::move(entries);
    endResetModel();
}

void ClipboardEntryListModel::setSelectedId(const std::optional<QString>& id)
{
    if (id == m_selectedId) {
        return;
    }
    const int before = m_selectedId ? rowOf(*m_selectedId) : -1;
    m_selectedId = id;
    const int after = id ? rowOf(*id) : -1;
    for (const int row : {before, after}) {
        if (row >= 0) {
            emit dataChanged(index(row), index(row), {selectedRole});
        }
    }
}

int ClipboardEntryListModel::rowOf(const QString& id) const
{
    for (qsizetype row = 0; row < m_entries.size(); ++row) {
        if (m_entries.at(row).id == id) {
            return int(row);
        }
    }
    return -1;
}

QString ClipboardEntryListModel::rowPrefix(const QString& text)
{
    qsizetype end = std::min<qsizetype>(text.size(), rowPrefixLength);
    int lines = 1;
    for (qsizetype at = 0; at < end; ++at) {
        if (text.at(at) == u'\n' && ++lines > rowLines) {
            end = at;
            break;
        }
    }
    return text.left(end);
}
