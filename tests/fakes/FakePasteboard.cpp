#include "FakePasteboard.h"

QCoro::Task<std::optional<QStringList>> FakePasteboard::types()
{
    ++m_contentReads;
    co_await answerLater();
    if (m_contents.items.isEmpty()) {
        co_return std::nullopt;
    }
    QStringList names;
    for (const SavedPasteboardValue& value : m_contents.items.first().values) {
        names.append(value.type);
    }
    co_return names;
}

QCoro::Task<std::optional<QByteArray>> FakePasteboard::data(QString type)
{
    ++m_contentReads;
    co_await answerLater();
    co_return value(type);
}

QCoro::Task<std::optional<QString>> FakePasteboard::string()
{
    ++m_contentReads;
    co_await answerLater();
    co_return text();
}

QCoro::Task<PasteboardSnapshot> FakePasteboard::snapshot()
{
    ++m_contentReads;
    co_await answerLater();
    // WORKAROUND: QCoro's return_value moves from any lvalue it is given, members included; a copy keeps
    // the clipboard's contents in place.
    co_return PasteboardSnapshot(m_contents);
}

QCoro::Task<> FakePasteboard::answerLater()
{
    if (m_clock != nullptr) {
        co_await m_clock->sleep(m_answerDelay);
    }
}

std::optional<QByteArray> FakePasteboard::value(const QString& type) const
{
    for (const SavedPasteboardItem& item : m_contents.items) {
        for (const SavedPasteboardValue& value : item.values) {
            if (value.type == type) {
                return value.data;
            }
        }
    }
    return std::nullopt;
}

std::optional<QString> FakePasteboard::text() const
{
    const std::optional<QByteArray> bytes = value(plainTextType());
    return bytes ? std::optional(QString::fromUtf8(*bytes)) : std::nullopt;
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
