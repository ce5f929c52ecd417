#include "backend/AssistantSessionStore.h"

AssistantSessionStore::AssistantSessionStore(const Clock& clock, Limits limits)
    : m_clock(clock), m_limits(limits)
{}

QList<ChatMessage> AssistantSessionStore::history(const QString& sessionId)
{
    dropExpired();
    const auto found = m_sessions.constFind(sessionId);
    return found == m_sessions.constEnd() ? QList<ChatMessage>() : found->messages;
}

void AssistantSessionStore::record(const QString& sessionId, const QString& question, const QString& answer)
{
    dropExpired();
    if (!m_sessions.contains(sessionId) && m_sessions.size() >= m_limits.maxSessions) {
        auto oldest = m_sessions.begin();
        for (auto it = m_sessions.begin(); it != m_sessions.end(); ++it) {
            if (it->lastUsed < oldest->lastUsed) {
                oldest = it;
            }
        }
        m_sessions.erase(oldest);
    }
    Session& session = m_sessions[sessionId];
    session.messages.append({QStringLiteral("user"), question});
    session.messages.append({QStringLiteral("assistant"), answer});
    if (session.messages.size() > m_limits.maxMessages) {
        session.messages.remove(0, session.messages.size() - m_limits.maxMessages);
    }
    session.lastUsed = m_clock.elapsed();
}

void AssistantSessionStore::dropExpired()
{
    const Clock::Duration now = m_clock.elapsed();
    m_sessions.removeIf([&](const QHash<QString, Session>::iterator& it) {
        return now - it->lastUsed >= m_limits.idleExpiry;
    });
}
