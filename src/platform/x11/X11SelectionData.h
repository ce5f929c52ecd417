#pragma once

#include <QByteArray>
#include <QList>

// Xlib's own declaration, repeated so this header stays free of Xlib and its macros.
typedef unsigned long Atom;

// The answer to one conversion request, put together from the property reads that carry it: a value in one
// property, or an INCR announcement followed by pieces, each written anew into the property, until an empty
// one. Takes what another client wrote, so any read may be nonsense; nonsense fails the answer rather than
// being guessed at. No X connection: the caller does the reads.
class X11SelectionData {
public:
    enum class State { awaitingAnswer, awaitingPiece, complete, failed };

    // incrType is the server's INCR atom; an answer larger than maxBytes fails.
    X11SelectionData(Atom incrType, qsizetype maxBytes);

    // Takes one read of the present property, made at readOffset(): count items of format bits, 32-bit items
    // as the longs Xlib hands out. more says whether the server holds more of this property after them.
    void addRead(Atom type, int format, const void* items, unsigned long count, bool more);
    // The present property could not be read; the answer fails.
    void fail();

    State state() const { return m_state; }
    // Whether the present property is read whole, so the caller deletes it (which asks for the next piece).
    bool propertyDone() const { return !m_propertyOpen; }
    // Where the next read of the present property starts, in the 32-bit units XGetWindowProperty counts.
    long readOffset() const { return long(m_propertyBytes / 4); }
    // The value's items, packed as the owner wrote them; whole once complete.
    const QByteArray& bytes() const { return m_bytes; }
    QByteArray takeBytes() { return std::move(m_bytes); }
    // The distinct non-zero items of a complete 32-bit value, in order, as a target list names its atoms;
    // empty for any other value.
    QList<quint32> distinctItems() const;

private:
    void endProperty();

    Atom m_incrType;
    qsizetype m_maxBytes;
    State m_state = State::awaitingAnswer;
    // The present property: its type and format, and how much of it is read.
    bool m_propertyOpen = false;
    Atom m_propertyType = 0;
    int m_propertyFormat = 0;
    qsizetype m_propertyBytes = 0;
    // Of the value: the format of its pieces, and the bytes.
    int m_format = 0;
    QByteArray m_bytes;
};
