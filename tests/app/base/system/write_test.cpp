#include "base/system/write.hpp"

#include "base/system/held_signals.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>

#include "support/pipe.hpp"

namespace quillmere::test {
namespace {

using base::WriteResult;
using base::writeWithoutWaiting;

TEST(WriteWithoutWaiting, writesWhatThereIsRoomFor)
{
    const Pipe pipe;
    const WriteResult result = writeWithoutWaiting(pipe.writer(), "a line\n");
    EXPECT_EQ(result.count, 7U);
    EXPECT_EQ(result.error, 0);
    EXPECT_EQ(pipe.take(), "a line\n");
}

TEST(WriteWithoutWaiting, writesNoMoreThanFitsIntoAPipeThatHasAnyRoom)
{
    const Pipe pipe;
    ::fcntl(pipe.writer(), F_SETPIPE_SZ, PIPE_BUF);
    EXPECT_EQ(writeWithoutWaiting(pipe.writer(), std::string(PIPE_BUF + 1, 'x')).count, PIPE_BUF);
}

TEST(WriteWithoutWaiting, writesNothingWhileThereIsNoRoom)
{
    const Pipe pipe;
    pipe.fill();
    const WriteResult result = writeWithoutWaiting(pipe.writer(), "x");
    EXPECT_EQ(result.count, 0U);
    EXPECT_EQ(result.error, 0);
}

TEST(WriteWithoutWaiting, reportsAReaderThatIsGone)
{
    const base::BrokenPipesAreErrors brokenPipes;
    Pipe pipe;
    pipe.closeReader();
    EXPECT_EQ(writeWithoutWaiting(pipe.writer(), "x").error, EPIPE);
}

TEST(WriteWithoutWaiting, reportsADescriptorThatIsNotOpen)
{
    Pipe pipe;
    const int closed = pipe.writer();
    pipe.closeWriter();
    EXPECT_EQ(writeWithoutWaiting(closed, "x").error, EBADF);
}

}  // namespace
}  // namespace quillmere::test
