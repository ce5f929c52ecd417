#include "backend/RequestFraming.h"

#include <QList>
#include <limits>

RequestFraming::RequestFraming(qint64 maxHeaderBytes, qint64 maxBodyBytes)
    : m_maxHeaderBytes(maxHeaderBytes), m_maxBodyBytes(maxBodyBytes)
{}

RequestFraming::Step RequestFraming::take(QByteArrayView chunk)
{
    Step step;
    if (m_refused) {
        m_received += chunk.size();
        return step;
    }
    // One chunk may end one request and begin the next; each is measured on its own.
    while (!chunk.isEmpty()) {
        if (m_received == 0) {
            step.enteredPhase = Phase::inRequest;
        }
        if (m_expected < 0) {
            // Until the header is complete, every byte of the request is in m_head.
            m_head.append(chunk.first(qMin<qint64>(chunk.size(), m_maxHeaderBytes + 4 - m_head.size())));
            const qsizetype end = m_head.indexOf("\r\n\r\n");
            if (end < 0) {
                m_received += chunk.size();
                if (m_head.size() > m_maxHeaderBytes) {
                    step.refusal = refuse("431 Request Header Fields Too Large",
                                          QStringLiteral("The request headers are too large."));
                }
                return step;
            }
            const std::optional<qint64> length = bodyLength(m_head.left(end));
            if (!length) {
                step.refusal = refuse("411 Length Required",
                                      QStringLiteral("The request must give its Content-Length."));
                return step;
            }
            // A client may claim any length; the count saturates rather than overflows.
            const qint64 head = end + 4;
            m_expected = *length > std::numeric_limits<qint64>::max() - head
                             ? std::numeric_limits<qint64>::max()
                             : head + *length;
            if (*length > m_maxBodyBytes) {
                m_received += chunk.size();
                step.refusal =
                    refuse("413 Payload Too Large",
                           QStringLiteral("The request is larger than %1 KiB.").arg(m_maxBodyBytes / 1024));
                return step;
            }
        }
        const qint64 needed = m_expected - m_received;
        if (chunk.size() < needed) {
            m_received += chunk.size();
            return step;
        }
        // Complete: the server works on it now.
        chunk = chunk.sliced(needed);
        m_received = 0;
        m_expected = -1;
        m_head.clear();
        step.enteredPhase = Phase::idle;
    }
    return step;
}

std::optional<qint64> RequestFraming::bodyLength(const QByteArray& header) const
{
    qint64 length = 0;
    for (const QByteArray& line : header.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        const QByteArray name = line.left(colon).trimmed().toLower();
        if (name == "transfer-encoding") {
            return std::nullopt;
        }
        if (name == "content-length") {
            bool valid = false;
            length = line.mid(colon + 1).trimmed().toLongLong(&valid);
            if (!valid || length < 0) {
                length = m_maxBodyBytes + 1;
            }
        }
    }
    return length;
}

RequestFraming::Refusal RequestFraming::refuse(const QByteArray& statusLine, const QString& text)
{
    m_refused = true;
    return {statusLine, text};
}
