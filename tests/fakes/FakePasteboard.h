#pragma once

#include "core/Clock.h"
#include "platform/Pasteboard.h"

// An in-memory clipboard with one item whose reads answer at once, as for contents this process owns, or
// after a delay, as a slow owner in another process would. Every write moves the change count, as a real
// clipboard does, and reads are counted so tests can check that an idle poll leaves the contents alone.
class FakePasteboard : public Pasteboard {
public:
    qint64 changeCount() override { return m_changeCount; }
    QCoro::Task<std::optional<QStringList>> types() override;
    QCoro::Task<std::optional<QByteArray>> data(QString type) override;
    QCoro::Task<std::optional<QString>> string() override;
    QCoro::Task<PasteboardSnapshot> snapshot() override;
    void restore(const PasteboardSnapshot& snapshot) override;
    void clear() override;
    void writeString(const QString& text) override;

    // Another application copies: replaces the contents with these values.
    void copy(QList<SavedPasteboardValue> values);
    // Another application copies plain text, with extra marker types if given.
    void copyText(const QString& text, const QStringList& markerTypes = {});

    // From now on each read answers after delay on clock, with the contents of that moment.
    void answerAfter(Clock& clock, Clock::Duration delay)
    {
        m_clock = &clock;
        m_answerDelay = delay;
    }

    // What the clipboard holds now, read without counting.
    const PasteboardSnapshot& contents() const { return m_contents; }
    std::optional<QString> text() const;
    int contentReads() const { return m_contentReads; }

    static QString plainTextType() { return QStringLiteral("UTF8_STRING"); }

private:
    std::optional<QByteArray> value(const QString& type) const;
    QCoro::Task<> answerLater();

    PasteboardSnapshot m_contents;
    qint64 m_changeCount = 0;
    int m_contentReads = 0;
    Clock* m_clock = nullptr;
    Clock::Duration m_answerDelay{0};
};
