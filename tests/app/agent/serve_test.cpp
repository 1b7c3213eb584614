// `quillmere agent serve` in a process of its own.
#include "real_program.hpp"
#include "served_program.hpp"
#include "workspace/directory_lock.hpp"

#include <csignal>
#include <set>
#include <thread>

namespace quillmere::test {
namespace {

using workspace::DirectoryLock;

const Json ping = request(1, "ping");
const std::string pong = R"({"id":1,"jsonrpc":"2.0","result":{}})";

class Serve : public testing::Test {
protected:
    Person person;
    const EnvironmentVariable stateHome{"XDG_STATE_HOME", person.stateHome().string()};

    ProcessEnding types(const Words& words) const
    {
        Words all = {"--directory", person.directory().string()};
        all.insert(all.end(), words.begin(), words.end());
        return runProgram(all);
    }

    std::string asks(ServedProgram& server) const
    {
        return server.called("ask_question", {{"question", "Which one?"}}).at("id");
    }

    static Json askNumber(const Json& id)
    {
        return request(id, "tools/call", toolCall("ask_question", {{"question", "Which one?"}}));
    }

    static Json waitFor(const Json& id, const std::string& question, int timeout)
    {
        return request(id, "tools/call",
                       toolCall("wait_for_answer", {{"id", question}, {"timeout_seconds", timeout}}));
    }
};

TEST_F(Serve, answersWhatStandsInAFile)
{
    const TemporaryDirectory place;
    writeText(place.path() / "input", request(1, "initialize", {{"protocolVersion", "2025-11-25"}}).dump() +
                                          "\n" + request(2, "tools/list").dump() + "\n");
    const ProcessEnding ending = runProgram({"--directory", person.directory().string(), "agent", "serve"},
                                            {.in = Channel::toFile(place.path() / "input")});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    std::istringstream lines(ending.out);
    std::string first;
    std::string second;
    std::string third;
    std::getline(lines, first);
    std::getline(lines, second);
    EXPECT_EQ(Json::parse(first).at("result").at("serverInfo").at("name"), "quillmere");
    EXPECT_EQ(Json::parse(second).at("result").at("tools").size(), 5u);
    EXPECT_FALSE(std::getline(lines, third));
    EXPECT_EQ(person.names(), Words{});
}

TEST_F(Serve, leavesTheSummaryWhereItWas)
{
    EXPECT_EQ(Json::parse(types({"agent"}).out).at("workflow_state"), "idle");
    EXPECT_EQ(types({"agent", "sell"}).code, 2);
}

TEST_F(Serve, readsByteByByte)
{
    ServedProgram server(person.directory());
    server.note(ping);
    for (const char byte : ping.dump() + "\r\n") {
        server.write({&byte, 1});
    }
    EXPECT_EQ(server.receive().at("result"), Json::object());
}

TEST_F(Serve, answersALineWithoutAnEnd)
{
    ServedProgram server(person.directory());
    server.write("\n\r\n" + ping.dump());
    server.closeInput();
    EXPECT_EQ(server.rest(), pong + "\n");
    EXPECT_EQ(server.end(), 0);
}

TEST_F(Serve, saysThatTheInputEndedInAMessage)
{
    ServedProgram server(person.directory());
    server.write(R"({"jsonrpc":"2.0","id":1,"met)");
    server.closeInput();
    EXPECT_EQ(Json::parse(server.rest()).at("error").at("code"), -32700);
    EXPECT_EQ(server.end(), 0);
}

TEST_F(Serve, endsWithItsInput)
{
    ServedProgram server(person.directory());
    server.closeInput();
    EXPECT_EQ(server.rest(), "");
    EXPECT_EQ(server.end(), 0);
}

TEST_F(Serve, endsWithItsInputWhileACallWaits)
{
    ServedProgram server(person.directory());
    server.send(waitFor(9, asks(server), 600));
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    server.closeInput();
    EXPECT_EQ(server.rest(), "");
    EXPECT_EQ(server.end(), 0);
}

TEST_F(Serve, endsAtASignalWhileACallWaits)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        ServedProgram server(person.directory());
        server.send(waitFor(9, asks(server), 600));
        EXPECT_EQ(server.asked(ping).at("id"), 1);
        server.sendSignal(signal);
        EXPECT_EQ(server.end(), 0);
        EXPECT_EQ(server.rest(), "");
    }
}

TEST_F(Serve, answersOthersWhileTheLockIsBusy)
{
    ServedProgram server(person.directory());
    const DirectoryLock held(person.directory());
    server.send(askNumber(9));
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    server.sendSignal(SIGTERM);
    EXPECT_EQ(server.end(), 0);
    EXPECT_EQ(server.rest(), "");
}

TEST_F(Serve, asksOnceTheLockIsFree)
{
    ServedProgram server(person.directory());
    {
        const DirectoryLock held(person.directory());
        server.send(askNumber(9));
        EXPECT_EQ(server.asked(ping).at("id"), 1);
    }
    const Json asked = server.receive().at("result").at("structuredContent");
    EXPECT_EQ(asked.at("id"), person.state().agentQuestions.at(0).id.text());
}

TEST_F(Serve, asksAlsoWhenTheInputEndsWhileTheLockIsBusy)
{
    ServedProgram server(person.directory());
    {
        const DirectoryLock held(person.directory());
        server.send(askNumber(9));
        EXPECT_EQ(server.asked(ping).at("id"), 1);
        server.closeInput();
    }
    EXPECT_EQ(server.receive().at("id"), 9);
    EXPECT_EQ(server.end(), 0);
    EXPECT_EQ(person.state().agentQuestions.size(), 1u);
}

TEST_F(Serve, endsWhenItsOutputIsClosed)
{
    ServedProgram server(person.directory());
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    server.closeOutput();
    EXPECT_EQ(server.end(), 0);
}

TEST_F(Serve, endsAtASignalWhileNobodyReads)
{
    ServedProgram server(person.directory());
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    // More than a pipe holds.
    for (int number = 0; number < 20; ++number) {
        server.send(request(number, "tools/list"));
    }
    server.sendSignal(SIGTERM);
    EXPECT_EQ(server.end(), 0);
}

TEST_F(Serve, losesNothingForAClientThatReadsLate)
{
    ServedProgram server(person.directory());
    std::jthread writer([&] {
        for (int number = 0; number < 200; ++number) {
            server.send(request(number, "tools/list"));
        }
    });
    for (int number = 0; number < 200; ++number) {
        EXPECT_EQ(server.receive().at("id"), number);
    }
}

TEST_F(Serve, endsAtOnceWithoutItsChannels)
{
    const Words words = {"--directory", person.directory().string(), "agent", "serve"};
    EXPECT_EQ(runProgram(words, {.in = Channel::closed()}).code, 0);
    EXPECT_EQ(runProgram(words, {.out = Channel::closed()}).code, 0);
    EXPECT_EQ(runProgram(words, noChannels()).code, 0);
}

TEST_F(Serve, usesNoChannelsButThoseOfItsEnvironment)
{
    const Ending ending = person.types({"agent", "serve"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out + ending.err, "");
}

TEST_F(Serve, skipsALineThatIsTooLong)
{
    ServedProgram server(person.directory());
    const std::string piece(1024 * 1024, 'x');
    for (int megabyte = 0; megabyte < 11; ++megabyte) {
        server.write(piece);
    }
    EXPECT_EQ(server.receive().at("error").at("code"), -32600);
    server.write("the rest of it\n");
    EXPECT_EQ(server.asked(ping).at("result"), Json::object());
}

TEST_F(Serve, readsALineThatIsAsLongAsALineMayBe)
{
    ServedProgram server(person.directory());
    std::string line = ping.dump();
    server.note(ping);
    line.resize(10 * 1024 * 1024, ' ');
    server.write(line + "\n");
    EXPECT_EQ(server.receive().at("result"), Json::object());
}

TEST_F(Serve, countsNoLineEndIntoTheLengthOfALine)
{
    ServedProgram server(person.directory());
    std::string line = ping.dump();
    server.note(ping);
    line.resize(10 * 1024 * 1024, ' ');
    server.write(line + "\r\n");
    EXPECT_EQ(server.receive().at("result"), Json::object());
    server.write(line + " \n");
    EXPECT_EQ(server.receive().at("error").at("code"), -32600);
}

TEST_F(Serve, readsAMegabyteOfEmptyObjects)
{
    ServedProgram server(person.directory());
    std::string objects;
    for (int number = 0; number < 350'000; ++number) {
        objects += "{},";
    }
    server.note(ping);
    server.write(R"({"jsonrpc":"2.0","id":1,"method":"ping","params":{"a":[)" + objects + "0]}}\n");
    EXPECT_EQ(server.receive().at("result"), Json::object());
}

TEST_F(Serve, printsNothingElse)
{
    ServedProgram server(person.directory(), {"--json"});
    server.write("nonsense\n\xFF\n[[[\n");
    for (int line = 0; line < 3; ++line) {
        EXPECT_EQ(server.receive().at("error").at("code"), -32700);
    }
    server.closeInput();
    EXPECT_EQ(server.rest(), "");
}

TEST_F(Serve, bringsAQuestionToThePersonAndTheAnswerBack)
{
    ServedProgram server(person.directory());
    const std::string id = asks(server);
    EXPECT_NE(types({"questions"}).out.find("1.  Which one?"), std::string::npos);
    EXPECT_EQ(types({"answer", "1", "The second"}).code, 0);
    EXPECT_EQ(server.called("get_answer", {{"id", id}}).at("answer"), "The second");
    EXPECT_EQ(server.called("list_questions").at("questions"), Json::array());
}

TEST_F(Serve, endsAWaitWhenThePersonAnswers)
{
    ServedProgram server(person.directory());
    const std::string id = asks(server);
    server.send(waitFor(9, id, 600));
    server.send(request(10, "tools/call", stateless(toolCall("wait_for_answer", {{"id", id}}))));
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    EXPECT_EQ(types({"answer", "1", "The second"}).code, 0);
    // The two answers may come in either order.
    int ids = 0;
    for (int count = 0; count < 2; ++count) {
        const Json end = server.receive();
        ids += end.at("id").get<int>();
        EXPECT_EQ(end.at("result").at("structuredContent").at("answer"), "The second");
    }
    EXPECT_EQ(ids, 9 + 10);
}

TEST_F(Serve, endsAWaitAlsoWhenTheDirectoryWasAway)
{
    ServedProgram server(person.directory() / "below");
    const std::string id = asks(server);
    server.send(waitFor(9, id, 600));
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    std::filesystem::rename(person.directory() / "below", person.directory() / "away");
    EXPECT_EQ(server.receive().at("result").at("isError"), true);
}

TEST_F(Serve, endsAWaitWhenTheTimeIsUp)
{
    ServedProgram server(person.directory());
    const std::string id = asks(server);
    EXPECT_EQ(server.called("wait_for_answer", {{"id", id}, {"timeout_seconds", 0}}).at("status"), "open");
    EXPECT_EQ(server.called("wait_for_answer", {{"id", id}, {"timeout_seconds", 1}}).at("status"), "open");
}

TEST_F(Serve, dropsAWaitThatIsCancelled)
{
    ServedProgram server(person.directory());
    const std::string id = asks(server);
    server.send(waitFor(9, id, 600));
    server.send({{"jsonrpc", "2.0"}, {"method", "notifications/cancelled"}, {"params", {{"requestId", 9}}}});
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    EXPECT_EQ(types({"answer", "1", "The second"}).code, 0);
    EXPECT_EQ(server.called("get_answer", {{"id", id}}).at("status"), "answered");
    server.closeInput();
    EXPECT_EQ(server.rest(), "");
}

TEST_F(Serve, readsTheStateAndItsSchema)
{
    person.has(fullState());
    ServedProgram server(person.directory());
    const auto textOfResource = [&](const std::string& uri, const Json& params) {
        Json all = params;
        all["uri"] = uri;
        return server.asked(request(1, "resources/read", all))
            .at("result")
            .at("contents")
            .at(0)
            .at("text")
            .get<std::string>();
    };
    const std::string state = textOfResource("quillmere://agent/state", Json::object());
    // The same text as in the file, but for the moment.
    EXPECT_EQ(state.substr(0, state.find("\"remaining_seconds\"")),
              textOf(person.store().agentStateURL()).substr(0, state.find("\"remaining_seconds\"")));
    EXPECT_EQ(Json::parse(textOfResource("quillmere://agent/schema", stateless())).at("$schema"),
              "https://json-schema.org/draft/2020-12/schema");
}

TEST_F(Serve, saysWhyTheStateCannotBeRead)
{
    writeText(person.store().stateURL(), "{");
    ServedProgram server(person.directory());
    const Json error =
        server.asked(request(1, "resources/read", {{"uri", "quillmere://agent/state"}})).at("error");
    EXPECT_EQ(error.at("code"), -32603);
    const Json refused = server.asked(request(2, "tools/call", toolCall("get_focus_state", Json::object())));
    EXPECT_EQ(refused.at("result").at("isError"), true);
}

TEST_F(Serve, losesNoQuestionAmongMany)
{
    std::set<std::string> ids;
    ServedProgram one(person.directory());
    ServedProgram other(person.directory());
    std::ptrdiff_t answers = 0;
    std::jthread typing([&](const std::stop_token& isOver) {
        EXPECT_EQ(types({"ask", "Typed"}).code, 0);
        // Later on there may be no open question, but at first there is the typed one.
        do {
            answers += types({"answer", "1", "Yes"}).code == 0 ? 1 : 0;
        } while (!isOver.stop_requested());
    });
    for (int number = 0; number < 4; ++number) {
        const Json ask = request(number, "tools/call", toolCall("ask_question", {{"question", "Asked"}}));
        one.send(ask);
        other.send(ask);
        for (ServedProgram* const server : {&one, &other}) {
            ids.insert(server->receive().at("result").at("structuredContent").at("id").get<std::string>());
        }
    }
    typing.request_stop();
    typing.join();
    EXPECT_EQ(ids.size(), 8u);
    const QuillmereState state = person.state();
    EXPECT_EQ(state.agentQuestions.size(), 9u);
    for (const AgentQuestion& question : state.agentQuestions) {
        ids.erase(question.id.text());
    }
    EXPECT_EQ(ids.size(), 0u);
    EXPECT_EQ(std::ssize(state.agentQuestions) - std::ssize(state.openQuestions()), answers);
    EXPECT_GT(answers, 0);
}

TEST_F(Serve, holdsItsLimitsTogetherWithOthers)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 0; number < 49; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = "Asked long ago",
                                        .createdAt = moment - 1e6,
                                        .answer = std::nullopt,
                                        .answeredAt = std::nullopt});
    }
    person.has(state);
    ServedProgram one(person.directory());
    ServedProgram other(person.directory());
    asks(one);
    const Json ask = request(9, "tools/call", toolCall("ask_question", {{"question", "One more?"}}));
    EXPECT_EQ(other.asked(ask).at("result").at("isError"), true);
    EXPECT_EQ(person.state().agentQuestions.size(), 50u);
}

}  // namespace
}  // namespace quillmere::test
