#include "backend/AiEndpoint.h"
#include "backend/BackendHttpServer.h"
#include "backend/BackendOptions.h"
#include "backend/GuardedTcpServer.h"
#include "backend/ReleaseDescription.h"
#include "backend/UpstreamChatClient.h"
#include "core/EventLoopClock.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mivora-backend"));
    qSetMessagePattern(QStringLiteral("%{time yyyy-MM-ddThh:mm:ss.zzz} %{message}"));

    auto parsed =
        BackendOptions::parse(QCoreApplication::arguments(), QProcessEnvironment::systemEnvironment());
    if (const auto* stop = std::get_if<BackendOptions::Stop>(&parsed)) {
        std::fputs(qPrintable(stop->text + QLatin1Char('\n')), stop->isHelp ? stdout : stderr);
        return stop->isHelp ? 0 : 2;
    }
    const BackendOptions options = std::get<BackendOptions>(std::move(parsed));

    EventLoopClock clock;
    QNetworkAccessManager network;
    UpstreamChatClient upstream(network, options.upstream);
    AiEndpoint ai(clock, upstream, options.ai);
    const ReleaseDescription release(options.releaseFile);
    BackendHttpServer server(clock, ai, release);
    auto* listener = new GuardedTcpServer(ConnectionGuard::Limits{}, &server);
    if (!listener->listen(options.listenAddress, options.port)) {
        std::fprintf(stderr, "Cannot listen on %s:%u: %s\n", qPrintable(options.listenAddress.toString()),
                     unsigned(options.port), qPrintable(listener->errorString()));
        return 1;
    }
    server.bind(listener);
    qInfo("listening on %s:%u, model %s", qPrintable(options.listenAddress.toString()),
          unsigned(listener->serverPort()), qPrintable(options.upstream.model));
    return QCoreApplication::exec();
}
