#include "BackendServerHarness.h"
#include "core/AIReplyStyleLibrary.h"
#include "core/MivoraPromptLibrary.h"

namespace {

QString rewritePrompt(const char* id)
{
    return MivoraPromptLibrary::style(QString::fromLatin1(id), {})->prompt;
}

PromptStyle style(const char* id, const char* name = "")
{
    return PromptStyle{QString::fromLatin1(id), QString::fromLatin1(name), QString(), QString(), false};
}

struct ActionCase {
    const char* name;
    BackendAction action;
    PromptStyle style;
    // Target language, replyTo, keyboard language, user instruction.
    QStringList options;
    bool insist;
    QStringList systemIncludes;
};

} // namespace

TEST_F(BackendServerHarness, EachWireActionBecomesItsChatMessages)
{
    const ActionCase cases[] = {
        {"fix", BackendAction::fix, style("original"), {}, false, {"Correct the spelling"}},
        {"improve", BackendAction::improve, style("original"), {}, false, {rewritePrompt("original")}},
        {"built-in style", BackendAction::improve, style("friendly"), {}, false, {rewritePrompt("friendly")}},
        {"custom style",
         BackendAction::improve,
         style("custom-1", " Pirate "),
         {},
         false,
         {"style: Pirate."}},
        {"emoji", BackendAction::emoji, style("emoji"), {}, false, {rewritePrompt("emoji")}},
        {"translate", BackendAction::translate, style("translate"), {"German"}, false, {"into German."}},
        {"assistant", BackendAction::assistant, style("original"), {}, false, {"helpful assistant"}},
        {"reply",
         BackendAction::chatReply,
         style("friendly", "Friendly"),
         {"", "Message", "ru"},
         false,
         {AIReplyStyleLibrary::builtInStyles().at(1).prompt, "language: ru."}},
        {"insisting reply",
         BackendAction::chatReply,
         style("custom-reply-1"),
         {"", "Message", "", "Be brief"},
         true,
         {"instruction of the user: Be brief", "only repeated the message"}},
        {"insisting rewrite",
         BackendAction::improve,
         style("short"),
         {},
         true,
         {rewritePrompt("short"), "returned the text unchanged"}},
    };
    qsizetype call = 0;
    for (const ActionCase& test : cases) {
        SCOPED_TRACE(test.name);
        BackendRequest::Arguments arguments = wire("Message", test.action, test.style);
        arguments.targetLanguage = test.options.value(0);
        arguments.replyTo = test.options.value(1);
        arguments.keyboardLanguage = test.options.value(2);
        arguments.userInstruction = test.options.value(3);
        if (test.insist) {
            arguments.forceRewrite = true;
            arguments.styleIntensity = QStringLiteral("maximum");
        }
        completion("<think>Which words?</think>\n done");
        const AiEndpoint::Answer answer = ask(arguments);
        ASSERT_EQ(answer.status, 200) << answer.body.value("error").toString().toStdString();
        EXPECT_EQ(answer.body.value("result").toString(), "done");
        const QJsonArray messages = upstreamMessages(call++);
        ASSERT_EQ(messages.size(), 2);
        EXPECT_EQ(messages[0]["role"].toString(), "system");
        for (const QString& part : test.systemIncludes) {
            EXPECT_TRUE(messages[0]["content"].toString().contains(part)) << part.toStdString();
        }
        EXPECT_EQ(messages[1]["role"].toString(), "user");
        EXPECT_EQ(messages[1]["content"].toString(), "Message");
    }
    const ScriptedHttpServer::Request& last = upstream.requests().last();
    EXPECT_EQ(last.path, "/v1/chat/completions");
    EXPECT_EQ(last.headers.value("authorization"), "Bearer key");
    EXPECT_EQ(QJsonDocument::fromJson(last.body).object().value("model").toString(), "test-model");
}

TEST_F(BackendServerHarness, AssistantSessionsKeepTheirTurnsUntilTheyExpire)
{
    BackendRequest::Arguments kept = wire("Question", BackendAction::assistant, style("original"));
    kept.assistantSessionId = QStringLiteral("S1");
    kept.assistantKeepContext = true;
    completion("Answer");
    ask(kept);
    ask(kept);
    EXPECT_EQ(upstreamMessages(1).size(), 4);
    EXPECT_EQ(upstreamMessages(1)[2]["content"].toString(), "Answer");

    BackendRequest::Arguments forgetful = kept;
    forgetful.assistantKeepContext = false;
    ask(forgetful);
    EXPECT_EQ(upstreamMessages(2).size(), 2);

    clock.advance(std::chrono::minutes(31));
    ask(kept);
    EXPECT_EQ(upstreamMessages(3).size(), 2);
    // Ten turns are kept at most: a system message, twenty earlier messages and the question.
    for (int i = 0; i < 12; ++i) {
        ask(kept);
    }
    EXPECT_EQ(upstreamMessages(upstream.requests().size() - 1).size(), 22);
}

TEST_F(BackendServerHarness, BadRequestsAreRefusedWithoutReachingTheModel)
{
    const QByteArray valid =
        BackendRequest::make(wire("Text", BackendAction::fix, style("original"))).toJson();
    QJsonObject mistyped = QJsonDocument::fromJson(valid).object();
    mistyped.insert("keepContext", "yes");
    QJsonObject missing = QJsonDocument::fromJson(valid).object();
    missing.remove("text");
    QJsonObject unknown = QJsonDocument::fromJson(valid).object();
    unknown.insert("action", "dance");
    const auto json = [](const QJsonObject& object) { return QJsonDocument(object).toJson(); };
    struct Case {
        QByteArray token, device, body;
        int status;
        const char* error;
    } cases[] = {
        {"Bearer wrong", "D", valid, 401, "token is missing or wrong"},
        {"", "D", valid, 401, "token is missing or wrong"},
        {"Bearer secret", "", valid, 400, "device identifier"},
        {"Bearer secret", "D", "<html>", 400, "must be a JSON object"},
        {"Bearer secret", "D", json(mistyped), 400, "\"keepContext\" must be true or false."},
        {"Bearer secret", "D", json(missing), 400, "lacks \"text\""},
        {"Bearer secret", "D", json(unknown), 400, "Unknown action \"dance\""},
        {"Bearer secret", "D",
         BackendRequest::make(wire(QString(2501, 'a'), BackendAction::fix, style("original"))).toJson(), 413,
         "longer than 2500 characters"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.error);
        const AiEndpoint::Answer answer = AwaitTask::run(endpoint.handle(test.token, test.device, test.body));
        EXPECT_EQ(answer.status, test.status);
        EXPECT_TRUE(answer.body.value("error").toString().contains(QLatin1StringView(test.error)))
            << answer.body.value("error").toString().toStdString();
    }
    EXPECT_TRUE(upstream.requests().isEmpty());

    // Within the limit as the client counts and cuts: 2500 characters of two code units each, and a long
    // message replied to, which comes whole with every part of the text.
    BackendRequest::Arguments longReply =
        wire("Part", BackendAction::chatReply, style("friendly", "Friendly"));
    longReply.replyTo = QString(6000, 'm');
    for (const BackendRequest::Arguments& accepted :
         {wire(QString("e\u0301").repeated(2500), BackendAction::fix, style("original")), longReply}) {
        completion("ok");
        EXPECT_EQ(ask(accepted).status, 200) << accepted.text.size();
    }
}

TEST_F(BackendServerHarness, ModelServerFailuresBecomeClearErrors)
{
    struct Case {
        ScriptedHttpServer::Reply reply;
        int status;
        const char* error;
    } cases[] = {
        {ScriptedHttpServer::Reply::json(404, R"({"error":{"message":"model not found"}})"), 502,
         "does not have the model \"test-model\""},
        {ScriptedHttpServer::Reply::json(401, "{}"), 502, "refused the backend's API key"},
        {ScriptedHttpServer::Reply::json(429, "{}"), 429, "limiting requests"},
        {ScriptedHttpServer::Reply::json(500, R"({"error":"out of memory"})"), 502, "failed: out of memory"},
        {ScriptedHttpServer::Reply::html(200, "<html>gateway</html>"), 502, "cannot read"},
        {ScriptedHttpServer::Reply::json(200, R"({"choices":[{"message":{"content":"  "}}]})"), 502,
         "empty answer"},
        {ScriptedHttpServer::Reply{200, "{}", "application/json", std::chrono::milliseconds(1500)}, 502,
         "cannot be reached: The request timed out."},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.error);
        upstream.enqueue(test.reply);
        const AiEndpoint::Answer answer = ask(wire("Text", BackendAction::fix, style("original")));
        EXPECT_EQ(answer.status, test.status);
        EXPECT_TRUE(answer.body.value("error").toString().contains(QLatin1StringView(test.error)))
            << answer.body.value("error").toString().toStdString();
    }
}

TEST_F(BackendServerHarness, EachDeviceHasItsAllowancePerMinuteAndTheModelServerItsShare)
{
    AiEndpoint::Settings limited = settings();
    limited.maxRequestsPerDevicePerMinute = 2;
    limited.maxConcurrentUpstreamCalls = 1;
    AiEndpoint strict(clock, chat, limited);
    const QByteArray body =
        BackendRequest::make(wire("Text", BackendAction::fix, style("original"))).toJson();
    completion("ok", std::chrono::milliseconds(50));
    const std::pair<const char*, int> steps[] = {{"A", 200}, {"A", 200},  {"A", 429},
                                                 {"B", 200}, {"next", 0}, {"A", 200}};
    for (const auto& [device, status] : steps) {
        if (status == 0) {
            clock.advance(std::chrono::minutes(1));
            continue;
        }
        EXPECT_EQ(AwaitTask::run(strict.handle("Bearer secret", device, body)).status, status) << device;
    }
    // A second call while the only slot is taken is turned away at once.
    auto first = strict.handle("Bearer secret", "C", body);
    EXPECT_EQ(AwaitTask::run(strict.handle("Bearer secret", "D", body)).status, 503);
    EXPECT_EQ(AwaitTask::run(std::move(first)).status, 200);
}
