// mivora-backend over a model server that answers at once: requests per second and the latency it adds at 1,
// 16 and 64 concurrent clients (compared with the same clients talking to the model server directly), and
// the memory 1,000 live assistant conversations take.
#include "BenchArguments.h"
#include "ProcessMemory.h"
#include "SampleFigures.h"
#include "ScriptedHttpServer.h"
#include "core/BackendAction.h"
#include "core/PromptStyle.h"
#include "text/BackendRequest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <cstdio>
#include <memory>

namespace {

struct Run {
    QList<double> latenciesMs;
    double seconds = 0;
    int failures = 0;
};

QByteArray requestBody(BackendAction action, const QString& sessionId)
{
    BackendRequest::Arguments arguments;
    arguments.text = QStringLiteral("Please fix this sentense, it have a few mistake in it. ").repeated(4);
    arguments.action = action;
    arguments.style = PromptStyle{"friendly", "Friendly", "", "", true};
    arguments.assistantSessionId = sessionId;
    arguments.assistantKeepContext = !sessionId.isEmpty();
    return BackendRequest::make(arguments).toJson();
}

// `clients` loops, each on its own connection, posting one request after another for `duration`.
Run load(const QUrl& url, int clients, std::chrono::milliseconds duration, int totalLimit = -1,
         const std::function<QByteArray(int)>& body = {})
{
    Run run;
    QEventLoop loop;
    QElapsedTimer clock;
    clock.start();
    int active = clients;
    int sent = 0;
    std::vector<std::unique_ptr<QNetworkAccessManager>> networks;
    std::function<void(QNetworkAccessManager*)> next = [&](QNetworkAccessManager* network) {
        if (clock.elapsed() >= duration.count() || (totalLimit >= 0 && sent >= totalLimit)) {
            if (--active == 0) {
                loop.quit();
            }
            return;
        }
        QNetworkRequest request(url);
        request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json");
        request.setRawHeader("Authorization", "Bearer bench");
        request.setRawHeader("x-mivora-device-id", "BENCH");
        const qint64 started = clock.nsecsElapsed();
        QNetworkReply* reply =
            network->post(request, body ? body(sent) : requestBody(BackendAction::fix, {}));
        ++sent;
        QObject::connect(reply, &QNetworkReply::finished, reply, [&, reply, network, started] {
            run.latenciesMs.append(double(clock.nsecsElapsed() - started) / 1e6);
            if (reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != 200) {
                ++run.failures;
            }
            reply->deleteLater();
            next(network);
        });
    };
    for (int i = 0; i < clients; ++i) {
        networks.push_back(std::make_unique<QNetworkAccessManager>());
        networks.back()->setProxy(QNetworkProxy::NoProxy);
        next(networks.back().get());
    }
    loop.exec();
    run.seconds = double(clock.elapsed()) / 1000.0;
    return run;
}

quint16 freePort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

// Asks the backend to end and waits for it, so it goes as a user's service manager would stop it.
struct StopBackend {
    void operator()(QProcess* process) const
    {
        process->terminate();
        if (!process->waitForFinished(3000)) {
            process->kill();
            process->waitForFinished(3000);
        }
        delete process;
    }
};
using BackendProcess = std::unique_ptr<QProcess, StopBackend>;

// A backend process in front of the upstream; stopped when it goes out of scope.
BackendProcess startBackend(const QString& upstream, quint16 port)
{
    BackendProcess process(new QProcess);
    process->setProcessChannelMode(QProcess::ForwardedOutputChannel);
    process->start(QStringLiteral(MIVORA_BACKEND_BINARY),
                   {"--token", "bench", "--model", "bench-model", "--upstream-url", upstream, "--port",
                    QString::number(port), "--max-concurrent", "1024", "--requests-per-minute", "10000000"});
    process->waitForStarted();
    // Ready once it accepts connections.
    for (int attempt = 0; attempt < 100; ++attempt) {
        QTcpSocket probe;
        probe.connectToHost(QHostAddress::LocalHost, port);
        if (probe.waitForConnected(50)) {
            break;
        }
        QEventLoop pause;
        QTimer::singleShot(50, &pause, &QEventLoop::quit);
        pause.exec();
    }
    return process;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    // Access lines would flood the terminal; the figures are all that matter here.
    qputenv("QT_LOGGING_RULES", "default.info=false");
    const auto duration = std::chrono::milliseconds(countArgument(argc, argv, 1, 3000, 0));

    ScriptedHttpServer upstream;
    const QJsonObject answer{
        {"choices",
         QJsonArray{QJsonObject{
             {"message", QJsonObject{{"role", "assistant"}, {"content", "Please fix this sentence."}}}}}}};
    upstream.enqueue(
        ScriptedHttpServer::Reply::json(200, QJsonDocument(answer).toJson(QJsonDocument::Compact)));

    const quint16 port = freePort();
    const BackendProcess backend = startBackend(upstream.baseUrl() + "/v1", port);
    const QUrl viaBackend(QStringLiteral("http://127.0.0.1:%1/macos/ai").arg(port));
    const QUrl direct(upstream.baseUrl() + "/v1/chat/completions");

    std::printf("%-8s %12s %10s %10s %14s %14s %9s\n", "clients", "backend rps", "p50 ms", "p99 ms",
                "added p50 ms", "added p99 ms", "failures");
    for (const int clients : {1, 16, 64}) {
        const Run base = load(direct, clients, duration);
        const Run run = load(viaBackend, clients, duration);
        std::printf("%-8d %12.0f %10.2f %10.2f %14.2f %14.2f %9d\n", clients,
                    double(run.latenciesMs.size()) / run.seconds, percentile(run.latenciesMs, 0.5),
                    percentile(run.latenciesMs, 0.99),
                    percentile(run.latenciesMs, 0.5) - percentile(base.latenciesMs, 0.5),
                    percentile(run.latenciesMs, 0.99) - percentile(base.latenciesMs, 0.99), run.failures);
    }

    // Sessions in a fresh process: one warm-up request, then 1,000 conversations of one turn each.
    const quint16 sessionPort = freePort();
    const BackendProcess sessions = startBackend(upstream.baseUrl() + "/v1", sessionPort);
    const QUrl sessionUrl(QStringLiteral("http://127.0.0.1:%1/macos/ai").arg(sessionPort));
    load(sessionUrl, 16, std::chrono::seconds(30), 64);
    const long before = residentKibibytes(sessions->processId()).value_or(-1);
    const Run filled = load(sessionUrl, 16, std::chrono::seconds(60), 1000, [](int index) {
        return requestBody(BackendAction::assistant, QStringLiteral("session-%1").arg(index));
    });
    const long after = residentKibibytes(sessions->processId()).value_or(-1);
    std::printf("1000 assistant sessions: RSS %ld KiB -> %ld KiB (%+ld KiB, %.2f KiB each), failures %d\n",
                before, after, after - before, double(after - before) / 1000.0, filled.failures);
    return 0;
}
