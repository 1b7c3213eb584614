#include "base/system/line_writer.hpp"

#include "base/system/held_signals.hpp"
#include "base/system/wait.hpp"

#include <gtest/gtest.h>
#include <pty.h>
#include <termios.h>

#include <chrono>
#include <climits>
#include <sstream>

#include "support/pipe.hpp"

namespace quillmere::test {
namespace {

using base::LineWriter;

class LineForAReader : public testing::Test {
protected:
    std::ostringstream stream;
    Pipe pipe;
    LineWriter writer{stream, pipe.writer()};
};

TEST_F(LineForAReader, isSanitizedAndGoesToTheDescriptorOnly)
{
    writer.say("May \x1b[31m\nI?");
    EXPECT_EQ(pipe.take(), "May \xEF\xBF\xBD[31m I?\n");
    EXPECT_EQ(stream.str(), "");
}

TEST_F(LineForAReader, goesToTheStreamWithoutADescriptor)
{
    LineWriter(stream, -1).say("May I?");
    EXPECT_EQ(stream.str(), "May I?\n");
}

TEST_F(LineForAReader, isDroppedWhenThereIsNoRoom)
{
    pipe.fill();
    writer.say("May I?");
    pipe.take();
    writer.say("Again?");
    EXPECT_EQ(pipe.take(), "Again?\n");
}

TEST_F(LineForAReader, isCutSoThatItFitsIntoAPipeThatHasAnyRoom)
{
    ::fcntl(pipe.writer(), F_SETPIPE_SZ, PIPE_BUF);
    // Each of these bytes becomes three.
    writer.say(std::string(100'000, '\x1b'));
    const std::string line = pipe.take();
    EXPECT_EQ(line.size(), PIPE_BUF);
    EXPECT_EQ(line.back(), '\n');
}

TEST_F(LineForAReader, isLostWhenTheReaderIsGone)
{
    const base::BrokenPipesAreErrors brokenPipes;
    pipe.closeReader();
    writer.say("May I?");
    EXPECT_EQ(stream.str(), "");
}

TEST(LineForATerminal, isDroppedWhileOutputIsStopped)
{
    int master = -1;
    int slave = -1;
    ASSERT_EQ(::openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    const base::Descriptor screen(master);
    const base::Descriptor terminal(slave);
    std::ostringstream stream;
    LineWriter writer(stream, terminal.get());
    ASSERT_EQ(::tcflow(terminal.get(), TCOOFF), 0);
    writer.say("May I?");
    ASSERT_EQ(::tcflow(terminal.get(), TCOON), 0);
    writer.say("Again?");
    std::array<base::PollSource, 1> sources = {{{screen.get()}}};
    ASSERT_TRUE(base::waitFor(sources, std::chrono::seconds(30)));
    std::array<char, 100> bytes{};
    const ssize_t count = ::read(screen.get(), bytes.data(), bytes.size());
    EXPECT_EQ(std::string(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0), "Again?\r\n");
}

}  // namespace
}  // namespace quillmere::test
