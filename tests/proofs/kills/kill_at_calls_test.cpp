// The program is killed at every system call of a save.
//
// strace delivers SIGKILL when the program enters a call, so the program dies between that call and the
// previous one. Completed calls keep their effect: a process dies, not the machine.
#include <gtest/gtest.h>

#include <algorithm>

#include "proofs/kills/leftovers.hpp"
#include "proofs/support/figures.hpp"
#include "proofs/system_calls/three_files.hpp"
#include "proofs/system_calls/tracing.hpp"

namespace quillmere::test {
namespace {

constexpr int killed = 128 + 9;

/// The files after one kill, and after the next run.
struct CallAftermath {
    std::string call;
    Before before;
    int code;
    std::vector<Version> versions;
    std::vector<std::string> leftovers;
    int nextCode;
    bool nextAgrees;
    bool nextOpenedLeftovers;
    std::vector<std::string> leftoversAfterNext;
};

CallAftermath killAt(const TracedCall& call, Before before)
{
    const ThreeFiles files(before);
    CallAftermath aftermath{.call = call.text,
                            .before = before,
                            .code = 0,
                            .versions = {},
                            .leftovers = {},
                            .nextCode = 0,
                            .nextAgrees = false,
                            .nextOpenedLeftovers = false,
                            .leftoversAfterNext = {}};
    const std::string injection = call.name + ":signal=KILL:when=" + std::to_string(call.ordinal);
    aftermath.code = traced(files.directory(), ThreeFiles::asking(), files.home(), injection).code;
    aftermath.versions = files.versions();
    aftermath.leftovers = files.others();

    const TracedRun next = traced(files.directory(), ThreeFiles::asking(), files.home());
    aftermath.nextCode = next.code;
    aftermath.nextAgrees = files.agree();
    aftermath.leftoversAfterNext = files.others();
    for (const TracedCall& nextCall : next.calls) {
        for (const std::string& leftover : aftermath.leftovers) {
            aftermath.nextOpenedLeftovers |=
                nextCall.name.starts_with("open") && nextCall.text.find(leftover) != std::string::npos;
        }
    }
    return aftermath;
}

/// The results of all kills; made once per process.
const std::vector<CallAftermath>& callAftermaths()
{
    static const std::vector<CallAftermath> all = [] {
        std::vector<CallAftermath> made;
        for (const Before before : {Before::earlierFile, Before::noDirectory}) {
            if (before == Before::noDirectory && !inLongForm()) {
                continue;
            }
            // The short form kills at every fourth call: before, between and after the three renames.
            const std::size_t stride = amount(4, 1);
            const ThreeFiles example(before);
            const std::vector<TracedCall> calls =
                traced(example.directory(), ThreeFiles::asking(), example.home()).calls;
            for (std::size_t index = 0; index < calls.size(); index += stride) {
                made.push_back(killAt(calls[index], before));
            }
        }
        return made;
    }();
    return all;
}

class AKillAtACall : public testing::Test {
protected:
    void SetUp() override
    {
        if (!canTrace()) {
            GTEST_SKIP() << cannotTrace;
        }
    }
};

TEST_F(AKillAtACall, leavesEachFileOldOrNew)
{
    for (const CallAftermath& aftermath : callAftermaths()) {
        const Version old = aftermath.before == Before::earlierFile ? Version::older : Version::none;
        EXPECT_EQ(aftermath.code, killed) << aftermath.call;
        for (const Version version : aftermath.versions) {
            EXPECT_TRUE(version == old || version == Version::newer)
                << aftermath.call << ": " << testing::PrintToString(aftermath.versions);
        }
    }
    EXPECT_GE(callAftermaths().size(), amount(10, 80));
    reportFigure("SIGKILL at every system call of a save", "kills of the program", callAftermaths().size());
}

TEST_F(AKillAtACall, happensBetweenAllOfTheReplacements)
{
    for (std::size_t newer = 0; newer <= 3; ++newer) {
        EXPECT_TRUE(std::any_of(callAftermaths().begin(), callAftermaths().end(),
                                [&](const CallAftermath& aftermath) {
                                    return static_cast<std::size_t>(std::count(aftermath.versions.begin(),
                                                                               aftermath.versions.end(),
                                                                               Version::newer)) == newer;
                                }))
            << newer;
    }
}

TEST_F(AKillAtACall, leavesNoSummaryNewerThanTheState)
{
    for (const CallAftermath& aftermath : callAftermaths()) {
        // The state must be newest, then the agent's summary, then the widget's.
        EXPECT_TRUE(std::is_sorted(aftermath.versions.begin(), aftermath.versions.end(),
                                   [](Version left, Version right) { return left > right; }))
            << aftermath.call << ": " << testing::PrintToString(aftermath.versions);
    }
}

TEST_F(AKillAtACall, isRepairedByTheNextSave)
{
    for (const CallAftermath& aftermath : callAftermaths()) {
        EXPECT_EQ(aftermath.nextCode, 0) << aftermath.call;
        EXPECT_TRUE(aftermath.nextAgrees) << aftermath.call;
    }
}

TEST_F(AKillAtACall, leavesHiddenFilesThatAreNeverRead)
{
    std::size_t count = 0;
    for (const CallAftermath& aftermath : callAftermaths()) {
        count += aftermath.leftovers.size();
        EXPECT_TRUE(areHiddenTemporaries(aftermath.leftovers)) << aftermath.call;
        EXPECT_FALSE(aftermath.nextOpenedLeftovers) << aftermath.call;
        EXPECT_EQ(aftermath.leftoversAfterNext, aftermath.leftovers) << aftermath.call;
    }
    EXPECT_GT(count, 0u);
}

}  // namespace
}  // namespace quillmere::test
