// The error of a run that runs out of memory. The proofs show for every command that the files stay whole.
#include "failing_run.hpp"

namespace quillmere::test {
namespace {

TEST(Allocations, failingAreReportedAsAJsonObject)
{
    // While the command line is read, before any JSON is made.
    const TemporaryDirectory directory;
    const Words words = {"--directory", directory.path().string(), "pause", "--json"};
    runFailing(0, words, moment);
    for (std::size_t allocation = 0; allocation < 60; allocation += 6) {
        const FailingRun run = runFailing(allocation, words, moment);
        EXPECT_EQ(run.code, ExitCode::outOfMemory);
        EXPECT_EQ(jsonAt("/error", run.err),
                  R"({"case":"outOfMemory","message":"There is not enough memory."})");
    }
}

TEST(Allocations, failingDuringAUsageErrorEndWithTheCode)
{
    const TemporaryDirectory directory;
    const Words words = {"--directory", directory.path().string(), "plan", "--focus", "\x1b[2J"};
    runFailing(0, words, moment);
    for (std::size_t allocation = 1; allocation < 6000; allocation += 97) {
        const FailingRun run = runFailing(allocation, words, moment);
        EXPECT_EQ(run.code, run.failed ? ExitCode::outOfMemory : ExitCode::usage) << allocation << run.err;
    }
}

}  // namespace
}  // namespace quillmere::test
