// A reader who does not read keeps nobody waiting.
#include "base/system/line_writer.hpp"

#include "base/system/held_signals.hpp"

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <sstream>

#include "desktop.hpp"

namespace quillmere::test {
namespace {

using base::LineWriter;

std::string readFrom(const base::Descriptor& file)
{
    std::array<char, 100'000> bytes;
    const ssize_t count = ::read(file.get(), bytes.data(), bytes.size());
    return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

class LineForAReader : public testing::Test {
protected:
    std::ostringstream stream;
    Pipe pipe = makePipe();
    LineWriter writer{stream, pipe.to.get()};
};

TEST_F(LineForAReader, isInertAndGoesPastTheStream)
{
    writer.say("May \x1b[31m\nI?");
    EXPECT_EQ(readFrom(pipe.from), "May \xEF\xBF\xBD[31m I?\n");
    EXPECT_EQ(stream.str(), "");
}

TEST_F(LineForAReader, goesToTheStreamWithoutADescriptor)
{
    LineWriter(stream, -1).say("May I?");
    EXPECT_EQ(stream.str(), "May I?\n");
}

TEST_F(LineForAReader, isDroppedWhenThereIsNoRoom)
{
    ::fcntl(pipe.to.get(), F_SETFL, O_NONBLOCK);
    while (::write(pipe.to.get(), "full", 1) == 1) {
    }
    ::fcntl(pipe.to.get(), F_SETFL, 0);
    writer.say("May I?");
    readFrom(pipe.from);
    writer.say("Again?");
    EXPECT_EQ(readFrom(pipe.from), "Again?\n");
}

TEST_F(LineForAReader, isShortEnoughForTheRoomThatThereIs)
{
    // As much as poll(2) takes for room, and not a byte more than a page of it.
    ::fcntl(pipe.to.get(), F_SETPIPE_SZ, 4'096);
    writer.say(std::string(100'000, '\x1b'));
    const std::string line = readFrom(pipe.from);
    EXPECT_EQ(line.size(), 4'096U);
    EXPECT_EQ(line.back(), '\n');
}

TEST_F(LineForAReader, isLostWhenTheReaderHasGone)
{
    const base::BrokenPipesAreErrors whenNobodyReads;
    pipe.from = base::Descriptor();
    writer.say("May I?");
}

TEST(LineForATerminal, isDroppedWhileThePersonHoldsIt)
{
    int ours = -1;
    int its = -1;
    ASSERT_EQ(::openpty(&ours, &its, nullptr, nullptr, nullptr), 0);
    const base::Descriptor keyboard(ours);
    const base::Descriptor terminal(its);
    std::ostringstream stream;
    LineWriter writer(stream, terminal.get());
    ASSERT_EQ(::tcflow(terminal.get(), TCOOFF), 0);
    writer.say("May I?");
    ASSERT_EQ(::tcflow(terminal.get(), TCOON), 0);
    writer.say("Again?");
    EXPECT_EQ(readFrom(keyboard), "Again?\r\n");
}

}  // namespace
}  // namespace quillmere::test
