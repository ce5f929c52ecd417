#pragma once

#include "backend/ChatMessage.h"
#include "core/Clock.h"

#include <QHash>
#include <QList>
#include <QString>

// Assistant conversations kept in memory by session id, so a follow-up question sees the earlier turns.
// Each keeps its latest messages only, ends after a while without use, and the oldest goes when too many
// are open.
class AssistantSessionStore {
public:
    struct Limits {
        // Messages kept per conversation (a question and its answer are two).
        int maxMessages = 20;
        Clock::Duration idleExpiry = std::chrono::minutes(30);
        int maxSessions = 10'000;
    };

    AssistantSessionStore(const Clock& clock, Limits limits);

    // The earlier turns of a live conversation; empty for an unknown or expired one.
    QList<ChatMessage> history(const QString& sessionId);
    // Appends a finished turn, opening the conversation when needed.
    void record(const QString& sessionId, const QString& question, const QString& answer);
    int liveCount() const { return int(m_sessions.size()); }

private:
    struct Session {
        QList<ChatMessage> messages;
        Clock::Duration lastUsed{0};
    };
    void dropExpired();

    const Clock& m_clock;
    Limits m_limits;
    QHash<QString, Session> m_sessions;
};
