// The real program with a client on real pipes.
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

TEST_F(Serve, answersTheLinesOfAFile)
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

TEST_F(Serve, isASubcommandBesideTheSummary)
{
    EXPECT_EQ(Json::parse(types({"agent"}).out).at("workflow_state"), "idle");
    EXPECT_EQ(types({"agent", "sell"}).code, 2);
}

TEST_F(Serve, answersALineWithoutAnEnd)
{
    ServedProgram server(person.directory());
    server.write("\n\r\n" + ping.dump());
    server.closeInput();
    EXPECT_EQ(server.rest(), pong + "\n");
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

TEST_F(Serve, answersOthersWhileTheLockIsBusyAndFinishesTheCallAfterTheEndOfTheInput)
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

TEST_F(Serve, endsWhenItsReaderIsGone)
{
    ServedProgram server(person.directory());
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    server.closeOutput();
    EXPECT_EQ(server.end(), 0);
}

TEST_F(Serve, endsAtASignalWhileItsOutputIsNotRead)
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

TEST_F(Serve, losesNoAnswerForAClientThatReadsLate)
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

TEST_F(Serve, usesOnlyTheDescriptorsOfItsEnvironment)
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

TEST_F(Serve, printsOnlyMessagesAlsoWithJson)
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
    // The order of the two answers is not defined.
    int ids = 0;
    for (int count = 0; count < 2; ++count) {
        const Json end = server.receive();
        ids += end.at("id").get<int>();
        EXPECT_EQ(end.at("result").at("structuredContent").at("answer"), "The second");
    }
    EXPECT_EQ(ids, 9 + 10);
}

TEST_F(Serve, endsAWaitWhenTheDirectoryIsMovedAway)
{
    ServedProgram server(person.directory() / "below");
    const std::string id = asks(server);
    server.send(waitFor(9, id, 600));
    EXPECT_EQ(server.asked(ping).at("id"), 1);
    std::filesystem::rename(person.directory() / "below", person.directory() / "away");
    EXPECT_EQ(server.receive().at("result").at("isError"), true);
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
    // In the format of the file, which is as of another moment.
    EXPECT_EQ(state.substr(0, state.find("\"remaining_seconds\"")),
              textOf(person.store().agentStateURL()).substr(0, state.find("\"remaining_seconds\"")));
    EXPECT_EQ(Json::parse(textOfResource("quillmere://agent/schema", stateless())).at("$schema"),
              "https://json-schema.org/draft/2020-12/schema");
}

TEST_F(Serve, answersAResourceThatCannotBeReadWithAnError)
{
    writeText(person.store().stateURL(), "{");
    ServedProgram server(person.directory());
    const Json error =
        server.asked(request(1, "resources/read", {{"uri", "quillmere://agent/state"}})).at("error");
    EXPECT_EQ(error.at("code"), -32603);
    EXPECT_NE(error.at("message").get<std::string>().find("only the person can repair it"),
              std::string::npos);
}

TEST_F(Serve, losesNoQuestionAmongMany)
{
    std::set<std::string> ids;
    ServedProgram one(person.directory());
    ServedProgram other(person.directory());
    std::ptrdiff_t answers = 0;
    std::jthread typing([&](const std::stop_token& isOver) {
        EXPECT_EQ(types({"ask", "Typed"}).code, 0);
        // Answers the typed question first, and later whatever question is open, if any.
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

}  // namespace
}  // namespace quillmere::test
