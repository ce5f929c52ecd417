#include "platform/x11/X11SelectionData.h"

#include <QSet>
#include <cstring>

X11SelectionData::X11SelectionData(Atom incrType, qsizetype maxBytes)
    : m_incrType(incrType), m_maxBytes(maxBytes)
{}

void X11SelectionData::addRead(Atom type, int format, const void* items, unsigned long count, bool more)
{
    if (m_state == State::complete || m_state == State::failed) {
        return;
    }
    const bool consistent = !m_propertyOpen || (type == m_propertyType && format == m_propertyFormat);
    if ((format != 8 && format != 16 && format != 32) || !consistent ||
        count > quint64(m_maxBytes - m_bytes.size()) / quint64(format / 8)) {
        fail();
        return;
    }
    m_propertyOpen = true;
    m_propertyType = type;
    m_propertyFormat = format;
    const qsizetype size = qsizetype(count) * (format / 8);
    // Pieces of an INCR transfer go into the value; the announcement only gives a lower bound of its size.
    const bool announcement = m_state == State::awaitingAnswer && type == m_incrType;
    if (!announcement) {
        if (m_bytes.size() + size > m_maxBytes) {
            fail();
            return;
        }
        if (format == 32) {
            // Xlib hands 32-bit items out as longs; they are packed back to 32 bits.
            const auto* bytes = static_cast<const unsigned char*>(items);
            for (unsigned long i = 0; i < count; ++i) {
                long item = 0;
                std::memcpy(&item, bytes + i * sizeof(long), sizeof(long));
                const quint32 value = quint32(item);
                m_bytes.append(reinterpret_cast<const char*>(&value), 4);
            }
        } else if (size > 0) {
            m_bytes.append(static_cast<const char*>(items), size);
        }
    }
    m_propertyBytes += size;
    // A server stops a read that leaves more behind at a whole 32-bit unit, having read something; anything
    // else would have the next read start in the wrong place, or never get anywhere.
    if (more && (size == 0 || m_propertyBytes % 4 != 0)) {
        fail();
        return;
    }
    if (!more) {
        endProperty();
    }
}

void X11SelectionData::endProperty()
{
    const qsizetype propertyBytes = m_propertyBytes;
    m_propertyOpen = false;
    m_propertyBytes = 0;
    if (m_state == State::awaitingAnswer) {
        if (m_propertyType == m_incrType) {
            m_state = State::awaitingPiece;
        } else {
            m_format = m_propertyFormat;
            m_state = State::complete;
        }
        return;
    }
    // An empty piece ends the transfer; every piece is of the first one's format.
    if (propertyBytes == 0) {
        m_state = State::complete;
    } else if (m_format == 0) {
        m_format = m_propertyFormat;
    } else if (m_format != m_propertyFormat) {
        fail();
    }
}

void X11SelectionData::fail()
{
    m_state = State::failed;
    m_propertyOpen = false;
    m_bytes.clear();
}

QList<quint32> X11SelectionData::distinctItems() const
{
    QList<quint32> items;
    if (m_state != State::complete || m_format != 32) {
        return items;
    }
    QSet<quint32> seen;
    for (qsizetype offset = 0; offset + 4 <= m_bytes.size(); offset += 4) {
        quint32 value = 0;
        std::memcpy(&value, m_bytes.constData() + offset, 4);
        if (value != 0 && !seen.contains(value)) {
            seen.insert(value);
            items.append(value);
        }
    }
    return items;
}
