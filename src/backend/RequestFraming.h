#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <optional>

// Follows the HTTP requests arriving on one connection, as chunks of bytes, before the HTTP server reads
// them: where each request ends, and whether one must be refused for its size or its framing. Knows no
// socket and no time, so it takes any bytes a client sends.
class RequestFraming {
public:
    struct Refusal {
        QByteArray statusLine;
        QString text;
    };

    enum class Phase { idle, inRequest };

    // What one chunk did, as its last effect.
    struct Step {
        // Whether a request began or ended in the chunk: the phase the connection is in after it.
        std::optional<Phase> enteredPhase;
        // Set when the chunk got the present request refused; the connection answers and closes then.
        std::optional<Refusal> refusal;
    };

    RequestFraming(qint64 maxHeaderBytes, qint64 maxBodyBytes);

    // Takes the bytes that arrived since the last call. After a refusal, further bytes are counted only.
    Step take(QByteArrayView chunk);
    bool refused() const { return m_refused; }
    // Whether the refused request is known to be received whole (or its length was never known), so nothing
    // is left to wait for.
    bool refusedRequestOver() const { return m_refused && (m_expected < 0 || m_received >= m_expected); }

private:
    Refusal refuse(const QByteArray& statusLine, const QString& text);
    // The Content-Length of a complete header (0 when absent, over the limit when unreadable); none for a
    // chunked body, which is not accepted.
    std::optional<qint64> bodyLength(const QByteArray& header) const;

    qint64 m_maxHeaderBytes;
    qint64 m_maxBodyBytes;
    QByteArray m_head;
    qint64 m_received = 0;
    qint64 m_expected = -1;
    bool m_refused = false;
};
