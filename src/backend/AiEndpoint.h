#pragma once

#include "backend/AssistantSessionStore.h"
#include "backend/DeviceRateLimiter.h"
#include "backend/UpstreamChatClient.h"

#include <QJsonObject>
#include <qcoro/qcorotask.h>

// "POST /macos/ai": checks who asks and what, then has the model server do the work.
class AiEndpoint {
public:
    struct Settings {
        // The bearer token every request must carry; an empty token admits nobody.
        QString token;
        // The program cuts longer texts into pieces of this many characters before sending them.
        int maxTextCharacters = 2500;
        int maxRequestsPerDevicePerMinute = 60;
        int maxConcurrentUpstreamCalls = 8;
        AssistantSessionStore::Limits sessions;
    };

    struct Answer {
        int status = 200;
        // {"result": …} or {"error": …}.
        QJsonObject body;
    };

    AiEndpoint(const Clock& clock, UpstreamChatClient& upstream, Settings settings);

    // GUI thread; suspends while the model server works. Never throws: every failure is an error answer.
    QCoro::Task<Answer> handle(QByteArray authorization, QByteArray deviceId, QByteArray body);

    const AssistantSessionStore& sessions() const { return m_sessions; }

private:
    QCoro::Task<Answer> serve(QByteArray body, QString deviceId);

    UpstreamChatClient& m_upstream;
    Settings m_settings;
    AssistantSessionStore m_sessions;
    DeviceRateLimiter m_rateLimiter;
    int m_upstreamCalls = 0;
};
