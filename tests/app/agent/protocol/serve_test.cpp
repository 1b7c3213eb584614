// How many requests the loop handles before the client reads the answers.
#include "agent/protocol/serve.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <thread>

#include "said.hpp"
#include "support/eventually.hpp"
#include "support/pipe.hpp"

namespace quillmere::test {
namespace {

using agent::protocol::Moment;
using agent::protocol::Server;
using agent::protocol::Tool;
using agent::protocol::ToolResult;

class NoChanges : public agent::protocol::Changes {
public:
    int descriptor() const override { return -1; }
    void take() override {}
};

constexpr int manyCalls = 30;

/// A server whose only tool counts its calls. Many calls are in its input before it runs.
class ServeLoop : public testing::Test {
protected:
    Pipe in;
    Pipe out;
    Pipe ending;
    std::atomic<int> calls = 0;

    /// Runs until the end of the input.
    void serve(const std::function<Json()>& resultOfCall)
    {
        std::string lines;
        for (int id = 1; id <= manyCalls; ++id) {
            lines += request(id, "tools/call", toolCall("count", Json::object())).dump() + '\n';
        }
        in.write(lines);
        in.closeWriter();
        const auto count = [&](const Json&, Moment) {
            return [&](Moment) {
                ++calls;
                return ToolResult{.value = resultOfCall()};
            };
        };
        const Tool tool{.name = "count",
                        .title = "",
                        .description = "",
                        .inputSchema = {{"type", "object"}},
                        .outputSchema = {{"type", "object"}},
                        .hints = {},
                        .begin = count};
        Server server({.name = "test",
                       .title = "",
                       .version = "1",
                       .instructions = "",
                       .tools = {tool},
                       .resources = {}});
        NoChanges changes;
        agent::protocol::serve(server, changes,
                               {.in = in.reader(), .out = out.writer(), .ending = ending.reader()});
        out.closeWriter();
    }
};

TEST_F(ServeLoop, endsBetweenTwoLinesThatCameTogether)
{
    serve([this] {
        ending.write("!");
        return Json::object();
    });
    EXPECT_EQ(calls, 1);
}

TEST_F(ServeLoop, doesNotWorkFarAheadOfAClientThatReadsLate)
{
    const std::string text(400'000, 'x');
    std::jthread serving([&] { serve([&] { return Json{{"text", text}}; }); });
    std::array<char, 65536> bytes;
    int read = 0;
    for (ssize_t count = 1; count > 0;) {
        pollfd answers{.fd = out.reader(), .events = POLLIN, .revents = 0};
        if (::poll(&answers, 1, static_cast<int>(std::chrono::milliseconds(patience).count())) != 1) {
            ADD_FAILURE() << "the server sends nothing more";
            ending.write("!");
            break;
        }
        count = ::read(out.reader(), bytes.data(), bytes.size());
        const int made = calls;
        // An answer has the text twice, so that two answers are more than the limit of unsent output.
        EXPECT_LE(made - read, 4);
        read += static_cast<int>(std::count(bytes.data(), bytes.data() + std::max<ssize_t>(count, 0), '\n'));
    }
    EXPECT_EQ(read, manyCalls);
}

}  // namespace
}  // namespace quillmere::test
