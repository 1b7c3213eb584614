#include "base/system/wait.hpp"

#include <gtest/gtest.h>
#include <sys/time.h>

#include <array>
#include <csignal>
#include <system_error>

#include "support/pipe.hpp"

namespace quillmere::test {
namespace {

using base::PollSource;
using base::waitFor;
using namespace std::chrono_literals;

constexpr auto onlyLook = 0s;
/// Far longer than any wait here takes; a wait that uses it up fails its test.
constexpr auto limit = 30s;

volatile std::sig_atomic_t alarms = 0;
volatile int writer = -1;

TEST(WaitFor, saysWhichSourceIsReady)
{
    const Pipe quiet;
    const Pipe busy;
    ASSERT_EQ(::write(busy.writer(), "x", 1), 1);
    std::array<PollSource, 2> sources = {{{quiet.reader()}, {busy.reader()}}};
    EXPECT_TRUE(waitFor(sources, limit));
    EXPECT_FALSE(sources[0].isReady());
    EXPECT_TRUE(sources[1].isReady());
    EXPECT_FALSE(sources[1].hasFailed());
}

TEST(WaitFor, waitsWithoutALimitForASourceThatIsReady)
{
    const Pipe pipe;
    std::array<PollSource, 1> sources = {{{pipe.writer(), POLLOUT}}};
    EXPECT_TRUE(waitFor(sources, std::nullopt));
    EXPECT_TRUE(sources[0].isReady());
}

TEST(WaitFor, endsAtItsLimit)
{
    const Pipe pipe;
    std::array<PollSource, 1> sources = {{{pipe.reader()}}};
    EXPECT_FALSE(waitFor(sources, 1ns));
    EXPECT_FALSE(waitFor(sources, onlyLook));
    EXPECT_FALSE(waitFor(sources, -1h)) << "a limit that has passed";
    EXPECT_FALSE(sources[0].isReady());
}

TEST(WaitFor, forgetsWhatAnEarlierWaitFound)
{
    const Pipe pipe;
    ASSERT_EQ(::write(pipe.writer(), "x", 1), 1);
    std::array<PollSource, 1> sources = {{{pipe.reader()}}};
    ASSERT_TRUE(waitFor(sources, limit));
    pipe.take();
    EXPECT_FALSE(waitFor(sources, onlyLook));
    EXPECT_FALSE(sources[0].isReady());
}

TEST(WaitFor, leavesOutSourcesWithoutADescriptor)
{
    std::array<PollSource, 1> sources = {{{-1}}};
    EXPECT_FALSE(waitFor(sources, onlyLook));
    EXPECT_FALSE(sources[0].isReady());
}

TEST(WaitFor, reportsAWriterThatIsGone)
{
    Pipe pipe;
    pipe.closeWriter();
    std::array<PollSource, 1> sources = {{{pipe.reader()}}};
    EXPECT_TRUE(waitFor(sources, limit));
    EXPECT_TRUE(sources[0].isReady() && sources[0].hasFailed());
}

TEST(WaitFor, reportsAReaderThatIsGoneAlsoWithoutWaitingForRoom)
{
    Pipe pipe;
    pipe.closeReader();
    std::array<PollSource, 1> sources = {{{pipe.writer(), 0}}};
    EXPECT_TRUE(waitFor(sources, limit));
    EXPECT_TRUE(sources[0].hasFailed());
}

TEST(WaitFor, failsForADescriptorThatIsNotOpen)
{
    Pipe pipe;
    const int closed = pipe.reader();
    pipe.closeReader();
    std::array<PollSource, 1> sources = {{{closed}}};
    try {
        waitFor(sources, limit);
        FAIL() << "a loop would not notice";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::bad_file_descriptor);
    }
}

TEST(WaitFor, endsEarlyAfterASignalHandler)
{
    const Pipe pipe;
    writer = pipe.writer();
    // An alarm that repeats: when the first comes before the wait, a later one ends it. The thousandth ends a
    // wait that goes on after a handler.
    struct sigaction handler {};
    struct sigaction before {};
    handler.sa_handler = [](int) {
        alarms = alarms + 1;
        if (alarms == 1'000) {
            [[maybe_unused]] const ssize_t count = ::write(writer, "x", 1);
        }
    };
    ::sigaction(SIGALRM, &handler, &before);
    const itimerval often{.it_interval = {0, 1'000}, .it_value = {0, 1'000}};
    ::setitimer(ITIMER_REAL, &often, nullptr);
    std::array<PollSource, 1> sources = {{{pipe.reader()}}};
    EXPECT_FALSE(waitFor(sources, std::nullopt));
    const itimerval never{};
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before, nullptr);
    EXPECT_FALSE(sources[0].isReady());
}

}  // namespace
}  // namespace quillmere::test
