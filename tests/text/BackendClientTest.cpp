#include "BackendTestSupport.h"
#include "text/BackendClientError.h"

#include <QRegularExpression>
#include <QTcpServer>

namespace {

QByteArray resultJson(const QString& result)
{
    return QJsonDocument(QJsonObject{{QStringLiteral("result"), result}}).toJson(QJsonDocument::Compact);
}

} // namespace

TEST_F(BackendClientFixture, PostsTheOrderedBodyWithItsHeaders)
{
    BackendClient client = makeClient();
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("Hi!"))));

    const QString result =
        AwaitTask::run(client.send(QStringLiteral("  Say \"hi\"/ \n"), BackendAction::improve,
                                   styleWithId(QStringLiteral("friendly")), QStringLiteral("English"), true));

    EXPECT_EQ(result, QStringLiteral("Hi!"));
    ASSERT_EQ(server.requests().size(), 1);
    const ScriptedHttpServer::Request& request = server.requests().first();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.path, QStringLiteral("/macos/ai"));
    EXPECT_EQ(request.headers.value("content-type"), "application/json");
    EXPECT_EQ(request.headers.value("authorization"), "Bearer token-1");
    EXPECT_EQ(
        request.body,
        QByteArray(R"({"action":"style_rewrite","model":"gpt-4.1-mini","preferredModel":"gpt-4.1-mini",)"
                   R"("fallbackModel":"gpt-4.1-mini","text":"Say \"hi\"/","sourceText":"Say \"hi\"/",)"
                   R"("targetLanguage":"English","keyboardLanguage":"","writingStyle":"Friendly",)"
                   R"("styleId":"Friendly","gender":"","voiceGender":"","userInstruction":"","replyTo":"",)"
                   R"("assistantSessionId":"","assistantKeepContext":false,"keepContext":false,)"
                   R"("mode":"style_rewrite","task":"style_rewrite","rewriteMode":"style_rewrite",)"
                   R"("replyMode":"chat_reply"})"));
}

TEST_F(BackendClientFixture, DeviceIdIsMadeOnceAndAnEmptyStoredValueIsReplaced)
{
    defaults.setValue(QStringLiteral("mivora.deviceID"), QString());
    BackendClient client = makeClient();
    const PromptStyle style = styleWithId(QStringLiteral("original"));
    AwaitTask::run(client.send(QStringLiteral("one"), BackendAction::fix, style, {}, false));
    AwaitTask::run(client.send(QStringLiteral("two"), BackendAction::fix, style, {}, false));

    const QString stored = defaults.value(QStringLiteral("mivora.deviceID")).toString();
    static const QRegularExpression upperUuid(
        QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$"));
    EXPECT_TRUE(upperUuid.match(stored).hasMatch()) << stored.toStdString();
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.requests()[0].headers.value("x-mivora-device-id"), stored.toUtf8());
    EXPECT_EQ(server.requests()[1].headers.value("x-mivora-device-id"), stored.toUtf8());
}

TEST_F(BackendClientFixture, CleansDashesAndBlanksOfTheAnswer)
{
    BackendClient client = makeClient();
    server.enqueue(
        ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("\n  Да — нет – может  \n"))));
    EXPECT_EQ(AwaitTask::run(client.send(QStringLiteral("x"), BackendAction::translate,
                                         styleWithId(QStringLiteral("translate")), QStringLiteral("Russian"),
                                         false)),
              QStringLiteral("Да - нет - может"));
}

TEST_F(BackendClientFixture, LongTextsGoInChunksOneAfterAnother)
{
    BackendClient client = makeClient();
    const PromptStyle style = styleWithId(QStringLiteral("original"));

    // 2500 characters, each two UTF-16 units: still one request.
    const QString combining = QString(QStringLiteral("e\u0301")).repeated(2500);
    AwaitTask::run(client.send(combining, BackendAction::fix, style, {}, false));
    EXPECT_EQ(server.requests().size(), 1);

    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("first"))));
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("second"))));
    const QString sentences = QString(QLatin1Char('a')).repeated(2400) + QStringLiteral(". ") +
                              QString(QLatin1Char('b')).repeated(99);
    const QString joined = AwaitTask::run(client.send(sentences, BackendAction::fix, style, {}, false));

    EXPECT_EQ(joined, QStringLiteral("first\n\nsecond"));
    ASSERT_EQ(server.requests().size(), 3);
    EXPECT_EQ(body(1).value(QStringLiteral("text")).toString(), QString(QLatin1Char('a')).repeated(2400));
    EXPECT_EQ(body(2).value(QStringLiteral("text")).toString(),
              QStringLiteral(". ") + QString(QLatin1Char('b')).repeated(99));
}

TEST_F(BackendClientFixture, AFailedChunkEndsTheWholeCall)
{
    BackendClient client = makeClient();
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("first"))));
    server.enqueue(ScriptedHttpServer::Reply::json(502, R"({"error":"Upstream busy"})"));
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("third"))));
    const QString threeChunks =
        QStringList(3, QString(QLatin1Char('w')).repeated(2000)).join(QStringLiteral("\n"));

    EXPECT_EQ(failureText(client.send(threeChunks, BackendAction::fix,
                                      styleWithId(QStringLiteral("original")), {}, false)),
              QStringLiteral("Upstream busy"));
    EXPECT_EQ(server.requests().size(), 2);
}

TEST_F(BackendClientFixture, AnUnchangedTranslationIsAskedForExactlyOnceMore)
{
    BackendClient client = makeClient();
    const PromptStyle translate = styleWithId(QStringLiteral("translate"));

    // Differs only in case, blanks and quotes: unchanged, so asked again; the second answer is final even
    // though it is unchanged too.
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("«HELLO   “world”"))));
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("Hello world"))));
    EXPECT_EQ(AwaitTask::run(client.send(QStringLiteral("Hello world"), BackendAction::translate, translate,
                                         QStringLiteral("German"), true)),
              QStringLiteral("Hello world"));
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(body(1).value(QStringLiteral("action")).toString(), QStringLiteral("translate"));
    EXPECT_EQ(body(1).value(QStringLiteral("targetLanguage")).toString(), QStringLiteral("German"));

    // The closing guillemet is not a quote to this comparison: the answer counts as a translation.
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("Hello world»"))));
    AwaitTask::run(client.send(QStringLiteral("Hello world"), BackendAction::translate, translate,
                               QStringLiteral("German"), true));
    EXPECT_EQ(server.requests().size(), 3);

    // Without the flag, and for other actions, an echo is accepted at once.
    server.enqueue(ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("Hello world"))));
    AwaitTask::run(client.send(QStringLiteral("Hello world"), BackendAction::translate, translate,
                               QStringLiteral("German"), false));
    AwaitTask::run(client.send(QStringLiteral("Hello world"), BackendAction::fix, translate, {}, true));
    EXPECT_EQ(server.requests().size(), 5);
}

TEST_F(BackendClientFixture, ReportsEachFailureWithItsText)
{
    BackendClient client = makeClient();
    const PromptStyle style = styleWithId(QStringLiteral("original"));
    auto failureOf = [&](ScriptedHttpServer::Reply reply) {
        server.enqueue(std::move(reply));
        return failureText(client.send(QStringLiteral("text"), BackendAction::fix, style, {}, false));
    };
    const QString decoding =
        QStringLiteral("The data couldn't be read because it isn't in the correct format.");

    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(500, R"({"error":"Quota exceeded"})")),
              QStringLiteral("Quota exceeded"));
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(500, R"({"error":""})")), QString());
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(503, "{}")),
              QStringLiteral("Backend returned HTTP 503."));
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, R"({"error":"ignored on success"})")),
              QStringLiteral("AI returned an empty result."));
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, R"({"result":" \n "})")),
              QStringLiteral("AI returned an empty result."));
    // Decoding comes before the status: a gateway's HTML page is a decoding failure.
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::html(502, "<html>Bad gateway</html>")), decoding);
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, "")), decoding);
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, R"({"result":42})")), decoding);
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, "{\"result\":\"caf\xC3\x28\"}")), decoding);
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, "[\"result\"]")), decoding);

    ScriptedHttpServer::Reply truncated =
        ScriptedHttpServer::Reply::json(200, R"({"result":"whole answer"})");
    truncated.truncateAt = 12;
    EXPECT_FALSE(failureOf(truncated).isEmpty());
}

TEST_F(BackendClientFixture, RefusesBadInputAndBadAddressesWithoutSending)
{
    const PromptStyle style = styleWithId(QStringLiteral("original"));
    BackendClient client = makeClient();
    EXPECT_EQ(failureText(client.send(QStringLiteral(" \n\t "), BackendAction::fix, style, {}, false)),
              QStringLiteral("No text to process."));
    for (const QString& base : {QString(), QStringLiteral("not a url"), QStringLiteral("ftp://host")}) {
        BackendClient misconfigured = makeClient(base);
        EXPECT_EQ(
            failureText(misconfigured.send(QStringLiteral("text"), BackendAction::fix, style, {}, false)),
            QStringLiteral("Backend URL is invalid."));
    }
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(BackendClientFixture, NetworkFailuresEndWithinTheirLimits)
{
    const PromptStyle style = styleWithId(QStringLiteral("original"));

    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const QString refusedUrl = QStringLiteral("http://127.0.0.1:%1").arg(closed.serverPort());
    closed.close();
    BackendClient refused = makeClient(refusedUrl);
    EXPECT_EQ(failureText(refused.send(QStringLiteral("text"), BackendAction::fix, style, {}, false)),
              QStringLiteral("Connection refused"));

    ScriptedHttpServer::Reply slow = ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("late")));
    slow.delay = std::chrono::seconds(3);
    server.enqueue(slow);
    BackendClient idle = makeClient({std::chrono::milliseconds(200), std::chrono::seconds(10), 1 << 20});
    EXPECT_EQ(failureText(idle.send(QStringLiteral("text"), BackendAction::fix, style, {}, false)),
              QStringLiteral("The request timed out."));
    BackendClient overall = makeClient({std::chrono::seconds(10), std::chrono::milliseconds(200), 1 << 20});
    EXPECT_EQ(failureText(overall.send(QStringLiteral("text"), BackendAction::fix, style, {}, false)),
              QStringLiteral("The request timed out."));

    server.enqueue(
        ScriptedHttpServer::Reply::json(200, resultJson(QString(QLatin1Char('x')).repeated(100000))));
    BackendClient small = makeClient({std::chrono::seconds(10), std::chrono::seconds(10), 4096});
    EXPECT_EQ(failureText(small.send(QStringLiteral("text"), BackendAction::fix, style, {}, false)),
              QStringLiteral("The server's answer is too large."));
}

TEST_F(BackendClientFixture, RepliesAreAskedAgainForcefullyWhenTheyEchoTheMessage)
{
    recognizer.language = QStringLiteral("ru");
    BackendClient client = makeClient();
    const AIReplyStyle original{
        QStringLiteral("original"), QStringLiteral("Обычный"),
        QStringLiteral("Reply naturally and directly. Keep it concise, human, and ready to "
                       "send.  "),
        QStringLiteral("Command+Alt+1")};
    const QString message = QStringLiteral("Привет! Как прошла встреча с клиентом?");

    server.enqueue(
        ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("привет как прошла встреча с "
                                                                       "клиентом"))));
    server.enqueue(
        ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("Отлично, договорились!"))));
    EXPECT_EQ(AwaitTask::run(client.sendReply(message, original, QStringLiteral("English"))),
              QStringLiteral("Отлично, договорились!"));

    ASSERT_EQ(server.requests().size(), 2);
    const QJsonObject first = body(0);
    EXPECT_EQ(recognizer.lastText, message);
    EXPECT_EQ(first.value(QStringLiteral("action")).toString(), QStringLiteral("chat_reply"));
    EXPECT_EQ(first.value(QStringLiteral("task")).toString(), QStringLiteral("write_chat_reply"));
    EXPECT_EQ(first.value(QStringLiteral("replyTo")).toString(), message);
    EXPECT_EQ(first.value(QStringLiteral("writingStyle")).toString(), QStringLiteral("Friendly"));
    EXPECT_EQ(first.value(QStringLiteral("keyboardLanguage")).toString(), QStringLiteral("ru"));
    EXPECT_EQ(first.value(QStringLiteral("targetLanguage")).toString(), QString());
    EXPECT_EQ(first.value(QStringLiteral("userInstruction")).toString(), QString());
    EXPECT_FALSE(first.contains(QStringLiteral("forceRewrite")));
    const QJsonObject second = body(1);
    EXPECT_EQ(second.value(QStringLiteral("forceRewrite")), QJsonValue(true));
    EXPECT_EQ(second.value(QStringLiteral("styleIntensity")).toString(), QStringLiteral("maximum"));
    EXPECT_TRUE(server.requests()[1].body.endsWith(R"("forceRewrite":true,"styleIntensity":"maximum"})"));
}

TEST_F(BackendClientFixture, ATranslatingReplyUsesTheTargetLanguageAndGivesUpAfterTwoEchoes)
{
    recognizer.language = QStringLiteral("ru");
    BackendClient client = makeClient();
    const AIReplyStyle translate{QStringLiteral("translate"), QStringLiteral("Перевод"),
                                 QStringLiteral("Answer in the target language, please."), QString()};
    server.enqueue(
        ScriptedHttpServer::Reply::json(200, resultJson(QStringLiteral("Reply instruction: none"))));

    EXPECT_EQ(
        failureText(client.sendReply(QStringLiteral("Wie geht's?"), translate, QStringLiteral("German"))),
        QStringLiteral("AI Reply returned the original message instead of a reply."));
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(body(0).value(QStringLiteral("targetLanguage")).toString(), QStringLiteral("German"));
    EXPECT_EQ(body(0).value(QStringLiteral("keyboardLanguage")).toString(), QStringLiteral("German"));
    EXPECT_EQ(body(0).value(QStringLiteral("userInstruction")).toString(),
              QStringLiteral("Answer in the target language, please."));
}
