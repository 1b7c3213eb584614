// The conversation line by line: versions with a handshake, stateless versions, and lines that are no
// request.
#include "agent/protocol/server.hpp"

#include <gtest/gtest.h>

#include "said.hpp"

namespace quillmere::test {
namespace {

using agent::protocol::Call;
using agent::protocol::Later;
using agent::protocol::Moment;
using agent::protocol::Offer;
using agent::protocol::Outcome;
using agent::protocol::Resource;
using agent::protocol::Server;
using agent::protocol::Tool;
using agent::protocol::ToolResult;
using std::chrono::seconds;

/// A client of a server that can echo a text, wait for `said`, and fail.
class ServerTest : public testing::Test {
protected:
    Moment now = Moment();
    std::optional<std::string> said;
    int looks = 0;  ///< how often waiting calls were asked

    /// All answers to one line.
    std::vector<Json> allSaidTo(const std::string& line)
    {
        transcript_.client(line);
        server_.receive(line, now);
        return heard();
    }

    /// The only answer to a line.
    Json saidTo(const std::string& line)
    {
        const std::vector<Json> all = allSaidTo(line);
        EXPECT_EQ(all.size(), 1u) << line;
        return all.empty() ? Json() : all.front();
    }
    Json saidTo(const Json& message) { return saidTo(message.dump()); }

    Json resultOf(const std::string& method, const Json& params = Json::object())
    {
        return saidTo(request(1, method, params)).at("result");
    }

    int errorOf(const Json& message) { return saidTo(message).at("error").at("code"); }

    Json shakeHands(const std::string& version)
    {
        return resultOf("initialize", {{"protocolVersion", version},
                                       {"capabilities", Json::object()},
                                       {"clientInfo", {{"name", "test"}, {"version", "1"}}}});
    }

    std::vector<Json> heardAfterChange()
    {
        server_.expectResults();
        return heardInTime();
    }

    std::vector<Json> heardInTime()
    {
        server_.askAgain(now);
        return heard();
    }

    std::vector<Json> heard()
    {
        std::vector<Json> messages;
        std::istringstream lines(server_.takeOutput());
        for (std::string line; std::getline(lines, line);) {
            transcript_.server(line);
            messages.push_back(Json::parse(line));
        }
        return messages;
    }

    std::optional<Moment> nextTime() const { return server_.nextTime(); }
    Server& server() { return server_; }

private:
    Tool tool(const std::string& name, const Json& properties,
              std::function<Call(const Json&, Moment)> begin) const
    {
        return {.name = name,
                .title = "A tool",
                .description = "For tests.",
                .inputSchema = {{"type", "object"}, {"properties", properties}},
                .outputSchema = {{"type", "object"}},
                .hints = {.readOnly = true, .destructive = false, .idempotent = true, .openWorld = false},
                .begin = std::move(begin)};
    }

    Offer offer()
    {
        const auto echo = [](const Json& arguments, Moment) {
            return [=](Moment) { return ToolResult{.value = arguments}; };
        };
        const auto wait = [this](const Json& arguments, Moment begin) {
            const Moment deadline = begin + seconds(arguments.at("for").get<int>());
            return [this, deadline](Moment at) -> Outcome {
                ++looks;
                if (said) {
                    return ToolResult{.value = {{"said", *said}}};
                }
                if (at >= deadline) {
                    return ToolResult{.value = nullptr, .refusal = "Too late."};
                }
                return Later{deadline};
            };
        };
        const auto fail = [](const Json&, Moment) -> Call { throw std::runtime_error("It broke."); };
        const auto runOut = [](const Json&, Moment) -> Call { throw std::bad_alloc(); };
        const Resource resource{.uri = "test://it",
                                .name = "it",
                                .title = "It",
                                .description = "For tests.",
                                .mimeType = "text/plain",
                                .caching = {.milliseconds = 0, .isPublic = false},
                                .read = [] { return std::string("Text"); }};
        Resource broken = resource;
        broken.uri = "test://broken";
        broken.read = []() -> std::string { throw std::runtime_error("It broke."); };
        return {.name = "test",
                .title = "Test",
                .version = "1",
                .instructions = "Test.",
                .tools = {tool("echo", {{"text", {{"type", "string"}}}}, echo),
                          tool("wait", {{"for", {{"type", "integer"}}}}, wait),
                          tool("fail", Json::object(), fail), tool("run_out", Json::object(), runOut)},
                .resources = {resource, broken}};
    }

    Server server_{offer()};
    Transcript transcript_;
};

TEST_F(ServerTest, agreesOnTheVersionThatIsAskedFor)
{
    for (const char* version : {"2025-11-25", "2025-06-18", "2024-11-05"}) {
        const Json result = shakeHands(version);
        EXPECT_EQ(result.at("protocolVersion"), version);
        EXPECT_EQ(result.at("serverInfo").at("name"), "test");
        EXPECT_EQ(result.at("capabilities"), Json::parse(R"({"tools": {}, "resources": {}})"));
        EXPECT_FALSE(result.contains("resultType"));
    }
}

TEST_F(ServerTest, agreesOnTheNewestHandshakeOtherwise)
{
    for (const char* version : {"2026-07-28", "2025-03-26", "1999-01-01", ""}) {
        EXPECT_EQ(shakeHands(version).at("protocolVersion"), "2025-11-25");
    }
    EXPECT_EQ(errorOf(request(1, "initialize")), -32602);
    EXPECT_EQ(errorOf(request(1, "initialize", {{"protocolVersion", 5}})), -32602);
}

TEST_F(ServerTest, answersBeforeTheHandshakeAsAfterIt)
{
    EXPECT_EQ(resultOf("ping"), Json::object());
    const Json before = resultOf("tools/list");
    shakeHands("2025-11-25");
    EXPECT_EQ(allSaidTo(R"({"jsonrpc":"2.0","method":"notifications/initialized"})").size(), 0u);
    EXPECT_EQ(resultOf("tools/list"), before);
}

TEST_F(ServerTest, discoversWithoutAHandshake)
{
    const Json result = resultOf("server/discover", stateless());
    EXPECT_EQ(result.at("supportedVersions"), Json::array({"2026-07-28"}));
    EXPECT_EQ(result.at("resultType"), "complete");
    EXPECT_EQ(result.at("ttlMs"), 3'600'000);
    EXPECT_EQ(result.at("cacheScope"), "public");
    EXPECT_EQ(result.at("_meta").at("io.modelcontextprotocol/serverInfo").at("name"), "test");
}

TEST_F(ServerTest, servesHandshakeAndStatelessRequestsInOneConversation)
{
    EXPECT_TRUE(resultOf("server/discover", stateless()).contains("supportedVersions"));
    EXPECT_EQ(shakeHands("2024-11-05").at("protocolVersion"), "2024-11-05");
    EXPECT_FALSE(resultOf("tools/list").contains("resultType"));
    EXPECT_EQ(resultOf("tools/list", stateless()).at("resultType"), "complete");
    EXPECT_FALSE(resultOf("tools/list").contains("resultType"));
}

TEST_F(ServerTest, requiresBothFieldsOfAStatelessRequest)
{
    Json params = stateless();
    params["_meta"].erase("io.modelcontextprotocol/clientCapabilities");
    EXPECT_EQ(errorOf(request(1, "tools/list", params)), -32602);
    params = stateless();
    params["_meta"].erase("io.modelcontextprotocol/protocolVersion");
    EXPECT_EQ(errorOf(request(1, "tools/list", params)), -32602);
    params["_meta"]["io.modelcontextprotocol/protocolVersion"] = 2026;
    EXPECT_EQ(errorOf(request(1, "tools/list", params)), -32602);
    EXPECT_EQ(errorOf(request(1, "server/discover")), -32602);
}

TEST_F(ServerTest, answersAnUnknownVersionWithThoseThatItHas)
{
    for (const char* version : {"2027-01-01", "2025-11-25", ""}) {
        Json params = stateless();
        params["_meta"]["io.modelcontextprotocol/protocolVersion"] = version;
        const Json error = saidTo(request(1, "server/discover", params)).at("error");
        EXPECT_EQ(error.at("code"), -32022);
        EXPECT_EQ(error.at("data").at("requested"), version);
        EXPECT_EQ(error.at("data").at("supported"), Json::array({"2026-07-28"}));
    }
}

TEST_F(ServerTest, refusesMethodsThatTheVersionDoesNotHave)
{
    EXPECT_EQ(errorOf(request(1, "ping", stateless())), -32601);
    EXPECT_EQ(errorOf(request(1, "initialize", stateless({{"protocolVersion", "2025-11-25"}}))), -32601);
    for (const char* method : {"prompts/list", "logging/setLevel", "tools/", "", "subscriptions/listen"}) {
        EXPECT_EQ(errorOf(request(1, method)), -32601);
        EXPECT_EQ(errorOf(request(1, method, stateless())), -32601);
    }
}

TEST_F(ServerTest, listsInAStableOrder)
{
    const Json tools = resultOf("tools/list").at("tools");
    ASSERT_EQ(tools.size(), 4u);
    EXPECT_EQ(tools[0].at("name"), "echo");
    EXPECT_EQ(tools[3].at("name"), "run_out");
    EXPECT_EQ(tools[0].at("annotations").size(), 4u);
    EXPECT_EQ(resultOf("resources/list").at("resources").at(0).at("uri"), "test://it");
    EXPECT_EQ(resultOf("resources/templates/list"), Json::parse(R"({"resourceTemplates": []})"));
}

TEST_F(ServerTest, hasOnePageOfEachList)
{
    for (const char* method : {"tools/list", "resources/list", "resources/templates/list"}) {
        EXPECT_EQ(errorOf(request(1, method, {{"cursor", "2"}})), -32602);
    }
}

TEST_F(ServerTest, saysHowLongAResultMayBeKeptWhereTheVersionKnows)
{
    for (const char* method : {"tools/list", "resources/list", "resources/templates/list"}) {
        EXPECT_EQ(resultOf(method, stateless()).at("ttlMs"), 3'600'000);
        EXPECT_FALSE(resultOf(method).contains("ttlMs"));
    }
    const Json read = resultOf("resources/read", stateless({{"uri", "test://it"}}));
    EXPECT_EQ(read.at("ttlMs"), 0);
    EXPECT_EQ(read.at("cacheScope"), "private");
    EXPECT_FALSE(resultOf("tools/call", stateless(toolCall("echo", Json::object()))).contains("ttlMs"));
}

TEST_F(ServerTest, readsAResource)
{
    const Json expected = Json::parse(R"([{"uri": "test://it", "mimeType": "text/plain", "text": "Text"}])");
    EXPECT_EQ(resultOf("resources/read", {{"uri", "test://it"}}).at("contents"), expected);
}

TEST_F(ServerTest, namesTheResourceThatIsNotFound)
{
    const Json error = saidTo(request(1, "resources/read", {{"uri", "test://none"}})).at("error");
    EXPECT_EQ(error.at("code"), -32002);
    EXPECT_EQ(error.at("data").at("uri"), "test://none");
    EXPECT_EQ(errorOf(request(1, "resources/read", stateless({{"uri", "test://none"}}))), -32602);
    EXPECT_EQ(errorOf(request(1, "resources/read")), -32602);
}

TEST_F(ServerTest, saysWhyAResourceCannotBeRead)
{
    const Json error = saidTo(request(1, "resources/read", {{"uri", "test://broken"}})).at("error");
    EXPECT_EQ(error.at("code"), -32603);
    EXPECT_EQ(error.at("message"), "It broke.");
}

TEST_F(ServerTest, returnsTheSameAsTextAndAsStructure)
{
    const Json arguments = {{"text", "a \"b\"\n\u00e4"}};
    for (const char* version : {"2025-06-18", "2025-11-25"}) {
        shakeHands(version);
        const Json result = resultOf("tools/call", toolCall("echo", arguments));
        EXPECT_EQ(result.at("structuredContent"), arguments);
        EXPECT_EQ(Json::parse(result.at("content").at(0).at("text").get<std::string>()), arguments);
        EXPECT_FALSE(result.contains("isError"));
    }
    EXPECT_EQ(resultOf("tools/call", stateless(toolCall("echo", arguments))).at("structuredContent"),
              arguments);
}

TEST_F(ServerTest, hasNoStructuresForAVersionThatDoesNotKnowThem)
{
    shakeHands("2024-11-05");
    const Json result = resultOf("tools/call", toolCall("echo", {{"text", "a"}}));
    EXPECT_FALSE(result.contains("structuredContent"));
    EXPECT_EQ(result.at("content").at(0).at("text"), R"({"text":"a"})");
    const Json tool = resultOf("tools/list").at("tools").at(0);
    EXPECT_FALSE(tool.contains("outputSchema"));
    EXPECT_FALSE(tool.contains("title"));
}

TEST_F(ServerTest, hasTitlesForVersionsThatKnowThem)
{
    for (const char* version : {"2025-11-25", "2025-06-18", "2024-11-05"}) {
        const bool knowsTitles = std::string(version) != "2024-11-05";
        EXPECT_EQ(shakeHands(version).at("serverInfo").contains("title"), knowsTitles);
        EXPECT_EQ(resultOf("resources/list").at("resources").at(0).contains("title"), knowsTitles);
    }
}

TEST_F(ServerTest, refusesUnknownTools)
{
    EXPECT_EQ(errorOf(request(1, "tools/call", toolCall("none", Json::object()))), -32602);
    EXPECT_EQ(errorOf(request(1, "tools/call")), -32602);
    EXPECT_EQ(errorOf(request(1, "tools/call", {{"name", 5}})), -32602);
}

TEST_F(ServerTest, tellsTheModelWhichArgumentsDoNotFit)
{
    for (const Json& arguments : {Json({{"text", 5}}), Json::array(), Json("text")}) {
        const Json result = resultOf("tools/call", toolCall("echo", arguments));
        EXPECT_EQ(result.at("isError"), true);
        EXPECT_FALSE(result.contains("structuredContent"));
        EXPECT_NE(result.at("content").at(0).at("text"), "");
    }
    EXPECT_FALSE(resultOf("tools/call", {{"name", "echo"}}).contains("isError"));
}

TEST_F(ServerTest, takesNullAsLeftOut)
{
    EXPECT_EQ(resultOf("ping", nullptr), Json::object());
    EXPECT_TRUE(resultOf("tools/list", {{"cursor", nullptr}}).contains("tools"));
    for (const Json& arguments : {Json(), Json({{"text", nullptr}}), Json({{"none", nullptr}})}) {
        const Json result = resultOf("tools/call", toolCall("echo", arguments));
        EXPECT_EQ(result.at("structuredContent"), Json::object());
    }
}

TEST_F(ServerTest, answersAnExceptionOfAToolWithAnError)
{
    EXPECT_EQ(errorOf(request(1, "tools/call", toolCall("fail", Json::object()))), -32603);
    EXPECT_EQ(resultOf("ping"), Json::object());
}

TEST_F(ServerTest, warnsBeforeARepetitionWhenMemoryRunsOut)
{
    const Json error = saidTo(request(1, "tools/call", toolCall("run_out", Json::object()))).at("error");
    EXPECT_EQ(error.at("code"), -32603);
    EXPECT_EQ(error.at("message"),
              "There was not enough memory for an answer. The request may have been carried out: look before "
              "you repeat it.");
}

TEST_F(ServerTest, answersOthersWhileACallWaits)
{
    EXPECT_EQ(allSaidTo(request("first", "tools/call", toolCall("wait", {{"for", 10}})).dump()).size(), 0u);
    EXPECT_EQ(allSaidTo(request(2, "tools/call", stateless(toolCall("wait", {{"for", 5}}))).dump()).size(),
              0u);
    EXPECT_EQ(nextTime(), now + seconds(5));
    EXPECT_EQ(resultOf("ping"), Json::object());
    EXPECT_EQ(heardAfterChange().size(), 0u);
    said = "Yes";
    const std::vector<Json> answers = heardAfterChange();
    ASSERT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers[0].at("id"), "first");
    EXPECT_FALSE(answers[0].at("result").contains("resultType"));
    EXPECT_EQ(answers[1].at("id"), 2);
    EXPECT_EQ(answers[1].at("result").at("resultType"), "complete");
    EXPECT_EQ(nextTime(), std::nullopt);
}

TEST_F(ServerTest, answersAWaitWhoseTimeIsUp)
{
    allSaidTo(request(1, "tools/call", toolCall("wait", {{"for", 5}})).dump());
    allSaidTo(request(2, "tools/call", toolCall("wait", {{"for", 10}})).dump());
    now += seconds(5);
    const std::vector<Json> answers = heardInTime();
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].at("id"), 1);
    EXPECT_EQ(answers[0].at("result").at("isError"), true);
    EXPECT_EQ(nextTime(), now + seconds(5));
}

TEST_F(ServerTest, asksOnlyTheCallsWhoseTimeHasCome)
{
    allSaidTo(request(1, "tools/call", toolCall("wait", {{"for", 5}})).dump());
    allSaidTo(request(2, "tools/call", toolCall("wait", {{"for", 10}})).dump());
    EXPECT_EQ(looks, 2);
    now += seconds(5);
    heardInTime();
    EXPECT_EQ(looks, 3);
    EXPECT_EQ(heardAfterChange().size(), 0u);
    EXPECT_EQ(looks, 4);
}

TEST_F(ServerTest, neverAnswersACallThatWasCancelled)
{
    allSaidTo(request(1, "tools/call", toolCall("wait", {{"for", 5}})).dump());
    allSaidTo(request("1", "tools/call", toolCall("wait", {{"for", 5}})).dump());
    EXPECT_EQ(
        allSaidTo(R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":1}})").size(),
        0u);
    said = "Yes";
    const std::vector<Json> answers = heardAfterChange();
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].at("id"), "1");
}

constexpr struct {
    const char* id;
    const char* cancelled;
} otherIds[] = {
    {"18446744073709551615", "-1"},
    {"9", "9.0"},
    {"9", "\"9\""},
    {"9007199254740993", "9007199254740992.0"},
    {"-9223372036854775808", "9223372036854775808"},
};

TEST_F(ServerTest, comparesTheIdsOfCancellationsExactly)
{
    for (const auto& [id, cancelled] : otherIds) {
        said.reset();
        allSaidTo(request(Json::parse(id), "tools/call", toolCall("wait", {{"for", 5}})).dump());
        allSaidTo(
            std::string(R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":)") +
            cancelled + "}}");
        said = "Yes";
        EXPECT_EQ(heardAfterChange().size(), 1u) << id << " is not " << cancelled;
    }
}

TEST_F(ServerTest, ignoresACancellationWithoutACall)
{
    for (const char* params : {R"({"requestId":7})", R"({"requestId":null})", "{}", "[]", "5"}) {
        EXPECT_EQ(allSaidTo(std::string(R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":)") +
                            params + "}")
                      .size(),
                  0u);
    }
}

TEST_F(ServerTest, refusesToLetMoreThan64CallsWait)
{
    for (int number = 0; number < 64; ++number) {
        EXPECT_EQ(allSaidTo(request(number, "tools/call", toolCall("wait", {{"for", 5}})).dump()).size(), 0u);
    }
    EXPECT_EQ(resultOf("tools/call", toolCall("wait", {{"for", 5}})).at("isError"), true);
}

TEST_F(ServerTest, returnsAnIdUnchanged)
{
    for (const Json& id : {Json(0), Json(-1), Json(9223372036854775807), Json(18446744073709551615u),
                           Json(""), Json("a\"\n\u2028"), Json("1"), Json(std::string(1024, 'x'))}) {
        const Json answer = saidTo(request(id, "ping"));
        EXPECT_EQ(answer.at("id"), id);
        EXPECT_EQ(answer.at("id").dump(), id.dump());
        EXPECT_EQ(saidTo(request(id, "none")).at("id"), id);
    }
}

TEST_F(ServerTest, refusesOtherValuesAsIds)
{
    const std::string tooLong = '"' + std::string(1025, 'x') + '"';
    for (const std::string& id :
         {std::string("null"), std::string("1.5"), std::string("1.0"), std::string("true"), std::string("[]"),
          std::string("{}"), std::string("18446744073709551616"), tooLong}) {
        const Json answer = saidTo(R"({"jsonrpc":"2.0","method":"ping","id":)" + id + "}");
        EXPECT_EQ(answer.at("error").at("code"), -32600) << id;
        EXPECT_FALSE(answer.contains("id"));
    }
}

TEST_F(ServerTest, neverAnswersNotifications)
{
    for (const char* method : {"notifications/initialized", "notifications/roots/list_changed", "none",
                               "tools/list", "initialize"}) {
        for (const char* params :
             {"{}", "[]", R"({"_meta":{"io.modelcontextprotocol/protocolVersion":"1"}})"}) {
            EXPECT_EQ(allSaidTo(std::string(R"({"jsonrpc":"2.0","method":")") + method + R"(","params":)" +
                                params + "}")
                          .size(),
                      0u);
        }
    }
}

TEST_F(ServerTest, ignoresResponses)
{
    EXPECT_EQ(allSaidTo(R"({"jsonrpc":"2.0","id":1,"result":{}})").size(), 0u);
    EXPECT_EQ(allSaidTo(R"({"jsonrpc":"2.0","id":1,"error":{"code":1,"message":"No"}})").size(), 0u);
}

const std::string noJson[] = {
    "x",
    std::string("{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"ping\"}\0", 41),
    std::string("{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"ping\"\0}", 41),
    std::string("\0", 1),
    "{",
    R"({"jsonrpc":"2.0","id":1,"method":"ping"} x)",
    "{\"a\":\"\xFF\"}",
    "{\"a\":\"\xED\xA0\x80\"}",
    "{\"a\":\"\x01\"}",
    "[1,]",
    "nul",
    "{'a':1}",
    "\"",
    "// comment",
};

TEST_F(ServerTest, saysThatALineIsNoJson)
{
    for (const std::string& line : noJson) {
        const Json answer = saidTo(line);
        EXPECT_EQ(answer.at("error").at("code"), -32700) << line;
        EXPECT_FALSE(answer.contains("id"));
    }
}

TEST_F(ServerTest, explainsJsonThatItCannotRead)
{
    const auto messageTo = [this](const std::string& value) {
        const Json error =
            saidTo(R"({"jsonrpc":"2.0","id":1,"method":"ping","params":{"a":)" + value + "}}").at("error");
        EXPECT_EQ(error.at("code"), -32700);
        return error.at("message").get<std::string>();
    };
    EXPECT_EQ(messageTo("1e400"), "A number in the line is too great to be read.");
    EXPECT_NE(messageTo(R"("\ud800")").find("lone surrogate"), std::string::npos);
}

constexpr const char* noMessage[] = {
    "5",
    "null",
    "\"ping\"",
    "[]",
    R"([{"jsonrpc":"2.0","id":1,"method":"ping"}])",
    "{}",
    R"({"id":1,"method":"ping"})",
    R"({"jsonrpc":"1.0","id":1,"method":"ping"})",
    R"({"jsonrpc":2.0,"id":1,"method":"ping"})",
    R"({"jsonrpc":"2.0","id":1})",
    R"({"jsonrpc":"2.0","id":1,"method":5})",
    R"({"jsonrpc":"2.0","method":["ping"]})",
};

TEST_F(ServerTest, saysThatALineIsNoMessage)
{
    for (const char* line : noMessage) {
        const Json answer = saidTo(std::string(line));
        EXPECT_EQ(answer.at("error").at("code"), -32600) << line;
        const Json message = Json::parse(line);
        EXPECT_EQ(answer.contains("id"), message.is_object() && message.contains("id"));
    }
}

TEST_F(ServerTest, refusesParamsThatAreNoObject)
{
    for (const Json& params : {Json::array(), Json(5), Json("x")}) {
        EXPECT_EQ(errorOf(request(1, "ping", params)), -32602);
    }
}

TEST_F(ServerTest, refusesMoreThan64Levels)
{
    const auto nested = [](std::size_t levels, const std::string& innermost) {
        return R"({"jsonrpc":"2.0","id":1,"method":"ping","params":{"a":)" + std::string(levels, '[') +
               innermost + std::string(levels, ']') + "}}";
    };
    // Two levels are the message itself and its params.
    for (const char* innermost : {"", "1", "\"[[[\"", "\"\\\"[[\""}) {
        EXPECT_TRUE(saidTo(nested(62, innermost)).contains("result")) << innermost;
        EXPECT_EQ(saidTo(nested(63, innermost)).at("error").at("code"), -32600) << innermost;
    }
    EXPECT_EQ(saidTo(std::string(1'000'000, '[')).at("error").at("code"), -32600);
    std::string objects;
    for (int level = 0; level < 100'000; ++level) {
        objects += "{\"a\":";
    }
    EXPECT_EQ(saidTo(objects).at("error").at("code"), -32600);
}

TEST_F(ServerTest, countsOnlyOpenLevels)
{
    std::string lists;
    for (int number = 0; number < 100; ++number) {
        lists += "[{}],";
    }
    EXPECT_TRUE(saidTo(R"({"jsonrpc":"2.0","id":1,"method":"ping","params":{"a":[)" + lists + "0]}}")
                    .contains("result"));
}

TEST_F(ServerTest, readsAnObjectOfVeryManyMembers)
{
    std::string members;
    for (int number = 0; number < 100'000; ++number) {
        members += "\"" + std::to_string(number) + "\":0,";
    }
    EXPECT_EQ(saidTo(R"({"jsonrpc":"2.0","id":1,"method":"ping","params":{)" + members + R"("last":0}})")
                  .at("result"),
              Json::object());
}

TEST_F(ServerTest, writesNoCharacterThatCouldEndALine)
{
    const std::string text = "a\nb\r\u0085\u2028\u2029";
    EXPECT_EQ(resultOf("tools/call", toolCall("echo", {{"text", text}})).at("structuredContent").at("text"),
              text);
    server().receive(request(1, "tools/call", toolCall("echo", {{"text", text}})).dump(), now);
    const std::string output = server().takeOutput();
    EXPECT_EQ(output.find_first_not_of(
                  " !\"#$%&'()*+,-./"
                  "0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~"),
              output.size() - 1);
}

}  // namespace
}  // namespace quillmere::test
