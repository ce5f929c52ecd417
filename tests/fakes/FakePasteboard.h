#pragma once

#include "platform/Pasteboard.h"

// An in-memory clipboard with one item. Every write moves the change count, as a real clipboard does, and
// reads are counted so tests can check that an idle poll leaves the contents alone.
class FakePasteboard : public Pasteboard {
public:
    qint64 changeCount() override { return m_changeCount; }
    std::optional<QStringList> types() override;
    std::optional<QByteArray> data(const QString& type) override;
    std::optional<QString> string() override;
    PasteboardSnapshot snapshot() override;
    void restore(const PasteboardSnapshot& snapshot) override;
    void clear() override;
    void writeString(const QString& text) override;

    // Another application copies: replaces the contents with these values.
    void copy(QList<SavedPasteboardValue> values);
    // Another application copies plain text, with extra marker types if given.
    void copyText(const QString& text, const QStringList& markerTypes = {});

    int contentReads() const { return m_contentReads; }

    static QString plainTextType() { return QStringLiteral("UTF8_STRING"); }

private:
    PasteboardSnapshot m_contents;
    qint64 m_changeCount = 0;
    int m_contentReads = 0;
};
