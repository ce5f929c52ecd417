#include "panels/PanelBackendClient.h"

QCoro::Task<QString> PanelBackendClient::send(PanelBackendRequest request)
{
    co_return co_await m_client.send(request.text, request.action, request.style, request.targetLanguage,
                                     request.retryOnUnchangedTranslation, request.assistantSessionId,
                                     request.assistantKeepContext);
}

QCoro::Task<QString> PanelBackendClient::sendReply(QString message, AIReplyStyle style,
                                                   QString targetLanguage)
{
    co_return co_await m_client.sendReply(message, style, targetLanguage);
}
