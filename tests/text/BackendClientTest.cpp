#include "BackendTestSupport.h"
#include "text/BackendClientError.h"

#include <QRegularExpression>
#include <QTcpServer>

TEST_F(BackendClientFixture, PostsTheOrderedBodyWithItsHeaders)
{
    BackendClient client = makeClient();
    answer("Hi!");

    const QString result = AwaitTask::run(
        client.send("  Say \"hi\"/ \n", BackendAction::improve, styleWithId("friendly"), "English", true));

    EXPECT_EQ(result, "Hi!");
    ASSERT_EQ(server.requests().size(), 1);
    const ScriptedHttpServer::Request& request = server.requests().first();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.path, "/macos/ai");
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
    defaults.setValue("mivora.deviceID", QString());
    BackendClient client = makeClient();
    const PromptStyle style = styleWithId("original");
    AwaitTask::run(client.send("one", BackendAction::fix, style, {}, false));
    AwaitTask::run(client.send("two", BackendAction::fix, style, {}, false));

    const QString stored = defaults.value("mivora.deviceID").toString();
    static const QRegularExpression upperUuid(
        "^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$");
    EXPECT_TRUE(upperUuid.match(stored).hasMatch()) << stored.toStdString();
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.requests()[0].headers.value("x-mivora-device-id"), stored.toUtf8());
    EXPECT_EQ(server.requests()[1].headers.value("x-mivora-device-id"), stored.toUtf8());
}

TEST_F(BackendClientFixture, CleansDashesAndBlanksOfTheAnswer)
{
    BackendClient client = makeClient();
    answer("\n  Да — нет – может  \n");
    EXPECT_EQ(AwaitTask::run(
                  client.send("x", BackendAction::translate, styleWithId("translate"), "Russian", false)),
              "Да - нет - может");
}

TEST_F(BackendClientFixture, LongTextsGoInChunksOneAfterAnother)
{
    BackendClient client = makeClient();
    const PromptStyle style = styleWithId("original");

    // 2500 characters, each two UTF-16 units: still one request.
    const QString combining = QString("e\u0301").repeated(2500);
    AwaitTask::run(client.send(combining, BackendAction::fix, style, {}, false));
    EXPECT_EQ(server.requests().size(), 1);

    answer("first");
    answer("second");
    const QString sentences =
        QString(QLatin1Char('a')).repeated(2400) + ". " + QString(QLatin1Char('b')).repeated(99);
    const QString joined = AwaitTask::run(client.send(sentences, BackendAction::fix, style, {}, false));

    EXPECT_EQ(joined, "first\n\nsecond");
    ASSERT_EQ(server.requests().size(), 3);
    EXPECT_EQ(body(1).value("text").toString(), QString(QLatin1Char('a')).repeated(2400));
    EXPECT_EQ(body(2).value("text").toString(), ". " + QString(QLatin1Char('b')).repeated(99));
}

TEST_F(BackendClientFixture, AFailedChunkEndsTheWholeCall)
{
    BackendClient client = makeClient();
    answer("first");
    server.enqueue(ScriptedHttpServer::Reply::json(502, R"({"error":"Upstream busy"})"));
    answer("third");
    const QString threeChunks = QStringList(3, QString(QLatin1Char('w')).repeated(2000)).join("\n");

    EXPECT_EQ(failureText(client.send(threeChunks, BackendAction::fix, styleWithId("original"), {}, false)),
              "Upstream busy");
    EXPECT_EQ(server.requests().size(), 2);
}

TEST_F(BackendClientFixture, AnUnchangedTranslationIsAskedForExactlyOnceMore)
{
    BackendClient client = makeClient();
    const PromptStyle translate = styleWithId("translate");

    // Differs only in case, blanks and quotes: unchanged, so asked again; the second answer is final even
    // though it is unchanged too.
    answer("«HELLO   “world”");
    answer("Hello world");
    EXPECT_EQ(AwaitTask::run(client.send("Hello world", BackendAction::translate, translate, "German", true)),
              "Hello world");
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(body(1).value("action").toString(), "translate");
    EXPECT_EQ(body(1).value("targetLanguage").toString(), "German");

    // The closing guillemet is not a quote to this comparison: the answer counts as a translation.
    answer("Hello world»");
    AwaitTask::run(client.send("Hello world", BackendAction::translate, translate, "German", true));
    EXPECT_EQ(server.requests().size(), 3);

    // Without the flag, and for other actions, an echo is accepted at once.
    answer("Hello world");
    AwaitTask::run(client.send("Hello world", BackendAction::translate, translate, "German", false));
    AwaitTask::run(client.send("Hello world", BackendAction::fix, translate, {}, true));
    EXPECT_EQ(server.requests().size(), 5);
}

TEST_F(BackendClientFixture, ReportsEachFailureWithItsText)
{
    BackendClient client = makeClient();
    const PromptStyle style = styleWithId("original");
    auto failureOf = [&](ScriptedHttpServer::Reply reply) {
        server.enqueue(std::move(reply));
        return failureText(client.send("text", BackendAction::fix, style, {}, false));
    };
    const QString decoding = "The data couldn't be read because it isn't in the correct format.";

    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(500, R"({"error":"Quota exceeded"})")),
              "Quota exceeded");
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(500, R"({"error":""})")), QString());
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(503, "{}")), "Backend returned HTTP 503.");
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, R"({"error":"ignored on success"})")),
              "AI returned an empty result.");
    EXPECT_EQ(failureOf(ScriptedHttpServer::Reply::json(200, R"({"result":" \n "})")),
              "AI returned an empty result.");
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
    const PromptStyle style = styleWithId("original");
    BackendClient client = makeClient();
    EXPECT_EQ(failureText(client.send(" \n\t ", BackendAction::fix, style, {}, false)),
              "No text to process.");
    for (const char* base : {"", "not a url", "ftp://host"}) {
        BackendClient misconfigured = makeClient(base);
        EXPECT_EQ(failureText(misconfigured.send("text", BackendAction::fix, style, {}, false)),
                  "Backend URL is invalid.");
    }
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(BackendClientFixture, NetworkFailuresEndWithinTheirLimits)
{
    const PromptStyle style = styleWithId("original");

    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const QString refusedUrl = QStringLiteral("http://127.0.0.1:%1").arg(closed.serverPort());
    closed.close();
    BackendClient refused = makeClient(refusedUrl);
    EXPECT_EQ(failureText(refused.send("text", BackendAction::fix, style, {}, false)), "Connection refused");

    ScriptedHttpServer::Reply slow = ScriptedHttpServer::Reply::json(200, R"({"result":"late"})");
    slow.delay = std::chrono::seconds(3);
    server.enqueue(slow);
    BackendClient idle = makeClient({std::chrono::milliseconds(200), std::chrono::seconds(10), 1 << 20});
    EXPECT_EQ(failureText(idle.send("text", BackendAction::fix, style, {}, false)), "The request timed out.");
    BackendClient overall = makeClient({std::chrono::seconds(10), std::chrono::milliseconds(200), 1 << 20});
    EXPECT_EQ(failureText(overall.send("text", BackendAction::fix, style, {}, false)),
              "The request timed out.");

    answer(QString(QLatin1Char('x')).repeated(100000));
    BackendClient small = makeClient({std::chrono::seconds(10), std::chrono::seconds(10), 4096});
    EXPECT_EQ(failureText(small.send("text", BackendAction::fix, style, {}, false)),
              "The server's answer is too large.");
}

TEST_F(BackendClientFixture, RepliesAreAskedAgainForcefullyWhenTheyEchoTheMessage)
{
    recognizer.language = QStringLiteral("ru");
    BackendClient client = makeClient();
    const AIReplyStyle original{
        "original", "Обычный",
        QStringLiteral("Reply naturally and directly. Keep it concise, human, and ready to "
                       "send.  "),
        "Command+Alt+1"};
    const QString message = QStringLiteral("Привет! Как прошла встреча с клиентом?");

    answer(QStringLiteral("привет как прошла встреча с "
                          "клиентом"));
    answer("Отлично, договорились!");
    EXPECT_EQ(AwaitTask::run(client.sendReply(message, original, "English")), "Отлично, договорились!");

    ASSERT_EQ(server.requests().size(), 2);
    const QJsonObject first = body(0);
    EXPECT_EQ(recognizer.lastText, message);
    EXPECT_EQ(first.value("action").toString(), "chat_reply");
    EXPECT_EQ(first.value("task").toString(), "write_chat_reply");
    EXPECT_EQ(first.value("replyTo").toString(), message);
    EXPECT_EQ(first.value("writingStyle").toString(), "Friendly");
    EXPECT_EQ(first.value("keyboardLanguage").toString(), "ru");
    EXPECT_EQ(first.value("targetLanguage").toString(), QString());
    EXPECT_EQ(first.value("userInstruction").toString(), QString());
    EXPECT_FALSE(first.contains("forceRewrite"));
    const QJsonObject second = body(1);
    EXPECT_EQ(second.value("forceRewrite"), QJsonValue(true));
    EXPECT_EQ(second.value("styleIntensity").toString(), "maximum");
    EXPECT_TRUE(server.requests()[1].body.endsWith(R"("forceRewrite":true,"styleIntensity":"maximum"})"));
}

TEST_F(BackendClientFixture, ATranslatingReplyUsesTheTargetLanguageAndGivesUpAfterTwoEchoes)
{
    recognizer.language = QStringLiteral("ru");
    BackendClient client = makeClient();
    const AIReplyStyle translate{"translate", "Перевод", "Answer in the target language, please.", QString()};
    answer("Reply instruction: none");

    EXPECT_EQ(failureText(client.sendReply("Wie geht's?", translate, "German")),
              "AI Reply returned the original message instead of a reply.");
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(body(0).value("targetLanguage").toString(), "German");
    EXPECT_EQ(body(0).value("keyboardLanguage").toString(), "German");
    EXPECT_EQ(body(0).value("userInstruction").toString(), "Answer in the target language, please.");
}
