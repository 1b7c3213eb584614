// Eight processes tick in one directory, while a ninth works through its blocks.
#include <gtest/gtest.h>
#include <sys/file.h>

#include "proofs/crowds/ticking_crowd.hpp"
#include "proofs/support/figures.hpp"
#include "proofs/system_calls/three_files.hpp"
#include "support/sample_states.hpp"

namespace {

/// The linker redirects this program's calls of flock(2) to the wrapper below.
bool hasLocks = true;

}  // namespace

extern "C" int __real_flock(int descriptor, int operation);  // NOLINT(bugprone-reserved-identifier)

extern "C" int __wrap_flock(int descriptor, int operation)  // NOLINT(bugprone-reserved-identifier)
{
    return hasLocks ? __real_flock(descriptor, operation) : 0;
}

namespace quillmere::test {
namespace {

constexpr double begin = moment.secondsSince1970();

TEST(ACrowdThatTicks, reportsEachStartAndEachEndOnce)
{
    const ThreeFiles files(Before::noDirectory);
    const Shared<Stage> stage;
    stage->seconds = begin;
    EXPECT_TRUE(tickThroughBlocks(*stage, files.directory(), amount(1, 60)));
    EXPECT_EQ(stage->reported.sorted(), stage->expected.sorted());
    EXPECT_TRUE(files.agree());
    EXPECT_EQ(files.others(), std::vector<std::string>{});

    std::uint64_t ticks = 0;
    for (const auto& one : stage->ticks) {
        ticks += one;
    }
    reportFigure("8 processes × `quillmere tick`", "ticks", ticks);
    reportFigure("8 processes × `quillmere tick`", "ticks turned away after five seconds",
                 stage->lockOuts.load());
    reportFigure("8 processes × `quillmere tick`", "starts and ends, each reported once",
                 stage->expected.sorted().size());
}

TEST(ACrowdThatTicks, reportsAnEndSeveralTimesWithoutTheLock)
{
    const TemporaryDirectory directory;
    const QuillmereState state = stateIn(WorkflowState::focusing);
    StateStore(directory.path(), StateStore::renameReplacing).save(state);
    const Shared<Stage> stage;
    stage->seconds = begin + 1500;
    hasLocks = false;
    EXPECT_TRUE(tickOnceTogether(*stage, directory.path()));
    hasLocks = true;
    EXPECT_EQ(stage->reported.sorted().size(), static_cast<std::size_t>(crowdSize));
}

}  // namespace
}  // namespace quillmere::test
