#include "FakePasteboard.h"

std::optional<QStringList> FakePasteboard::types()
{
    ++m_contentReads;
    if (m_contents.items.isEmpty()) {
        return std::nullopt;
    }
    QStringList names;
    for (const SavedPasteboardValue& value : m_contents.items.first().values) {
        names.append(value.type);
    }
    return names;
}

std::optional<QByteArray> FakePasteboard::data(const QString& type)
{
    ++m_contentReads;
    for (const SavedPasteboardItem& item : m_contents.items) {
        for (const SavedPasteboardValue& value : item.values) {
            if (value.type == type) {
                return value.data;
            }
        }
    }
    return std::nullopt;
}

std::optional<QString> FakePasteboard::string()
{
    const std::optional<QByteArray> bytes = data(plainTextType());
    return bytes ? std::optional(QString::fromUtf8(*bytes)) : std::nullopt;
}

PasteboardSnapshot FakePasteboard::snapshot()
{
    ++m_contentReads;
    return m_contents;
}

void FakePasteboard::restore(const PasteboardSnapshot& snapshot)
{
    m_contents = snapshot;
    ++m_changeCount;
}

void FakePasteboard::clear()
{
    m_contents = {};
    ++m_changeCount;
}

void FakePasteboard::writeString(const QString& text)
{
    copy({{plainTextType(), text.toUtf8()}});
}

void FakePasteboard::copy(QList<SavedPasteboardValue> values)
{
    m_contents = PasteboardSnapshot{{SavedPasteboardItem{std::move(values)}}};
    ++m_changeCount;
}

void FakePasteboard::copyText(const QString& text, const QStringList& markerTypes)
{
    QList<SavedPasteboardValue> values{{plainTextType(), text.toUtf8()}};
    for (const QString& marker : markerTypes) {
        values.append({marker, QByteArray("secret")});
    }
    copy(std::move(values));
}
