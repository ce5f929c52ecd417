#include "BackendServerHarness.h"
#include "FailureText.h"
#include "FakeLanguageRecognizer.h"
#include "MemoryDefaultsStore.h"
#include "core/AIReplyStyleLibrary.h"
#include "text/BackendClient.h"
#include "updates/AppUpdateClient.h"

#include <QFile>
#include <QNetworkReply>
#include <QTcpSocket>

namespace {

// The program's own client, talking to the backend under test.
class BackendEndToEnd : public BackendServerHarness {
protected:
    BackendClient client(const QString& token = QStringLiteral("secret"))
    {
        return BackendClient(network, BackendCredentials(defaults, token), baseUrl, recognizer);
    }

    // A raw exchange: status and body.
    std::pair<int, QByteArray> post(const QByteArray& path, const QByteArray& body)
    {
        QNetworkRequest request(QUrl(baseUrl + QString::fromLatin1(path)));
        request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json");
        request.setRawHeader("Authorization", "Bearer secret");
        request.setRawHeader("x-mivora-device-id", "D");
        QNetworkReply* reply = network.post(request, body);
        EXPECT_TRUE(AwaitTask::until([&] { return reply->isFinished(); }));
        reply->deleteLater();
        return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), reply->readAll()};
    }

    QString baseUrl = start({16 * 1024, 256 * 1024, std::chrono::milliseconds(300), std::chrono::seconds(5)});
    MemoryDefaultsStore defaults;
    FakeLanguageRecognizer recognizer;
    const PromptStyle friendly{"friendly", "Friendly", "", "", true};
};

} // namespace

TEST_F(BackendEndToEnd, TheProgramsClientGetsItsAnswers)
{
    BackendClient mivora = client();
    completion("Hello — friend!");
    EXPECT_EQ(AwaitTask::run(mivora.send("hallo friend", BackendAction::improve, friendly, {}, true)),
              "Hello - friend!");

    // A translation that comes back unchanged is asked once more.
    completion("Hallo Welt");
    completion("Hello world");
    EXPECT_EQ(AwaitTask::run(mivora.send("Hallo Welt", BackendAction::translate, friendly, "English", true)),
              "Hello world");

    // A reply that only echoes the message is asked again, insisting.
    const QString message = QStringLiteral("Are we still meeting at the station tomorrow morning?");
    completion(message);
    completion("Yes, see you at nine!");
    const AIReplyStyle replyStyle{"friendly", "Friendly", AIReplyStyleLibrary::builtInStyles().at(1).prompt,
                                  ""};
    EXPECT_EQ(AwaitTask::run(mivora.sendReply(message, replyStyle, {})), "Yes, see you at nine!");
    EXPECT_TRUE(upstreamMessages(4)[0]["content"].toString().contains("only repeated the message"));

    // A long text arrives in the client's pieces, each within the backend's limit.
    completion("first");
    completion("second");
    const QString longText = QString(2400, 'a') + ". " + QString(99, 'b');
    EXPECT_EQ(AwaitTask::run(mivora.send(longText, BackendAction::fix, friendly, {}, false)),
              "first\n\nsecond");
    EXPECT_EQ(upstream.requests().size(), 7);
}

TEST_F(BackendEndToEnd, FailuresReachTheUserAsText)
{
    EXPECT_TRUE(failureText(client("wrong").send("Hi", BackendAction::fix, friendly, {}, false))
                    .startsWith("The backend token is missing or wrong."));
    upstream.enqueue(
        ScriptedHttpServer::Reply{200, "{}", "application/json", std::chrono::milliseconds(1500)});
    EXPECT_EQ(failureText(client().send("Hi", BackendAction::fix, friendly, {}, false)),
              "The AI model server cannot be reached: The request timed out.");

    const auto [tooLarge, tooLargeBody] = post("/macos/ai", QByteArray(300 * 1024, ' '));
    EXPECT_EQ(tooLarge, 413);
    EXPECT_TRUE(tooLargeBody.contains("larger than 256 KiB"));
    const auto [malformed, malformedBody] = post("/macos/ai", "{\"action\":");
    EXPECT_EQ(malformed, 400);
    EXPECT_TRUE(malformedBody.contains("must be a JSON object"));
    EXPECT_EQ(post("/elsewhere", "{}").first, 404);
}

TEST_F(BackendEndToEnd, SlowAndVanishingClientsDoNotHoldTheServer)
{
    QTcpSocket slow;
    slow.connectToHost(QHostAddress::LocalHost, listener->serverPort());
    ASSERT_TRUE(slow.waitForConnected(2000));
    slow.write("POST /macos/ai HTTP/1.1\r\nContent-Length: 10\r\n\r\n{");
    EXPECT_TRUE(AwaitTask::until([&] { return slow.state() == QAbstractSocket::UnconnectedState; },
                                 std::chrono::seconds(3)));

    // A request behind another in the same packet is measured too.
    QTcpSocket pipelined;
    pipelined.connectToHost(QHostAddress::LocalHost, listener->serverPort());
    ASSERT_TRUE(pipelined.waitForConnected(2000));
    pipelined.write(
        "GET /macos/app/version HTTP/1.1\r\n\r\nPOST /macos/ai HTTP/1.1\r\nContent-Length: 999999\r\n\r\n");
    QByteArray answers;
    EXPECT_TRUE(
        AwaitTask::until([&] { return (answers += pipelined.readAll()).contains("413 Payload Too Large"); }));

    // A client that hangs up while the model works leaves nothing behind to answer.
    const QByteArray body = BackendRequest::make(wire("Hi", BackendAction::fix, friendly)).toJson();
    completion("late", std::chrono::milliseconds(200));
    auto* gone = new QTcpSocket;
    gone->connectToHost(QHostAddress::LocalHost, listener->serverPort());
    ASSERT_TRUE(gone->waitForConnected(2000));
    gone->write("POST /macos/ai HTTP/1.1\r\nAuthorization: Bearer secret\r\nx-mivora-device-id: D\r\n"
                "Content-Length: " +
                QByteArray::number(body.size()) + "\r\n\r\n" + body);
    ASSERT_TRUE(AwaitTask::until([&] { return upstream.requests().size() == 1; }));
    gone->abort();
    delete gone;
    AwaitTask::until([] { return false; }, std::chrono::milliseconds(400));

    completion("still here");
    EXPECT_EQ(AwaitTask::run(client().send("Hi", BackendAction::fix, friendly, {}, false)), "still here");
}

TEST_F(BackendEndToEnd, TheProgramsUpdateCheckReadsTheReleaseFile)
{
    DeploymentConfiguration deployment;
    deployment.updatesBaseUrl = baseUrl;
    const auto check = [&](int build) {
        deployment.currentBuild = build;
        return AppUpdateClient(network, deployment, clock).check(UiLanguage::ru);
    };
    EXPECT_EQ(failureText(check(1)), "This server has no release description.");

    QFile file(releasePath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"latest_version":"1.4.0","latest_build":40,"min_supported_build":30,"sha256":"ab12",
        "download_url":"https://example.org/m.deb","title":{"en":"Update","ru":"Обновление"}})");
    file.close();
    const std::tuple<int, bool, bool> cases[] = {{40, false, false}, {35, true, false}, {29, true, true}};
    for (const auto& [build, available, forced] : cases) {
        const AppUpdateSnapshot snapshot = AwaitTask::run(check(build));
        EXPECT_EQ(snapshot.updateAvailable, available) << build;
        EXPECT_EQ(snapshot.forceUpdate, forced) << build;
        EXPECT_EQ(snapshot.title, "Обновление");
        EXPECT_EQ(snapshot.downloadURL, QUrl("https://example.org/m.deb"));
    }
    QFile::remove(releasePath);
}
