// The same faults in the real program, injected by strace.
#include <gtest/gtest.h>

#include <algorithm>

#include "proofs/support/figures.hpp"
#include "proofs/system_calls/three_files.hpp"
#include "proofs/system_calls/traced_faults.hpp"
#include "workspace/state_home.hpp"

namespace quillmere::test {
namespace {

using cli::ExitCode;

/// Injects every fault at every call, and passes the program's exit code and files to the judge.
template <class Judge>
std::size_t forEveryFault(Judge judge)
{
    std::size_t count = 0;
    for (const Before before : {Before::noDirectory, Before::earlierFile}) {
        const ThreeFiles example(before);
        const Undisturbed run(traced(example.directory(), ThreeFiles::asking(), example.home()).calls);
        for (std::size_t index = 0; index < run.calls().size(); ++index) {
            const TracedCall& call = run.calls()[index];
            for (const int error : errorsToTry(call)) {
                for (const bool fromThereOn : {false, true}) {
                    if (fromThereOn && !mayLast(call)) {
                        continue;
                    }
                    const ThreeFiles files(before);
                    const std::string injection = injectionOf(call, error, fromThereOn);
                    SCOPED_TRACE(injection + "   " + call.text);
                    const int code =
                        traced(files.directory(), ThreeFiles::asking(), files.home(), injection).code;
                    judge(run.outcomeOf(index, error, fromThereOn), before, code, files);
                    ++count;
                }
            }
        }
    }
    return count;
}

class TheTracedProgram : public testing::Test {
protected:
    void SetUp() override
    {
        if (!canTrace()) {
            GTEST_SKIP() << cannotTrace;
        }
    }
};

/// Runs in the long form only. In the short form save_faults_test.cpp injects the faults into the library in
/// this process, and one trace shows that the program makes the same calls.
class TheProgramWithAFault : public TheTracedProgram {
protected:
    void SetUp() override
    {
        if (!inLongForm()) {
            GTEST_SKIP() << "in the long form only";
        }
        TheTracedProgram::SetUp();
    }
};

TEST_F(TheProgramWithAFault, saysSoAndLeavesWholeFiles)
{
    const std::size_t count =
        forEveryFault([](const Outcome& outcome, Before before, int code, const ThreeFiles& files) {
            const Version old = before == Before::earlierFile ? Version::older : Version::none;
            std::vector<Version> expected(3, old);
            for (std::size_t file = 0; file < expected.size(); ++file) {
                expected[file] = outcome.isReplaced.at(file) ? Version::newer : old;
            }
            EXPECT_EQ(code, static_cast<int>(outcome.code));
            EXPECT_EQ(files.versions(), expected);
            EXPECT_TRUE(files.others().empty());
        });
    EXPECT_GE(count, 100u);
    reportFigure("A fault at every system call of the program, by strace", "faulted runs", count);
}

TEST_F(TheProgramWithAFault, makesTheChangeWhenTheVersionBeforeItCannotBeKept)
{
    std::size_t count = 0;
    const auto tracedKeeping = [](const ThreeFiles& files, const std::string& injection) {
        // The state directory's name identifies the calls on the kept versions.
        const std::string name = workspace::stateDirectory(files.directory(), "/").filename();
        return traced(files.directory(), ThreeFiles::asking(), name, injection);
    };
    const std::vector<TracedCall> calls = tracedKeeping(ThreeFiles(Before::earlierFile), "").calls;
    for (const TracedCall& call : calls) {
        for (const int error : errorsToTry(call)) {
            const ThreeFiles files(Before::earlierFile);
            const std::string injection = injectionOf(call, error, false);
            SCOPED_TRACE(injection + "   " + call.text);
            const TracedRun run = tracedKeeping(files, injection);
            EXPECT_EQ(run.code, 0);
            EXPECT_EQ(files.versions(), std::vector(3, Version::newer));
            ++count;
        }
    }
    EXPECT_GE(count, 10u);
    reportFigure("A fault at every system call of the program, by strace",
                 "faults at keeping the version before", count);
}

TEST_F(TheProgramWithAFault, givesUpWhenTheLockIsNeverFree)
{
    const ThreeFiles files(Before::earlierFile);
    const TracedRun run =
        traced(files.directory(), ThreeFiles::asking(), files.home(), "flock:error=EAGAIN:when=1+");
    EXPECT_EQ(run.code, static_cast<int>(ExitCode::lockBusy));
    EXPECT_EQ(files.versions(), std::vector(3, Version::older));
}

TEST_F(TheTracedProgram, makesTheCallsOfThreeDurableReplacements)
{
    const ThreeFiles files(Before::earlierFile);
    const TracedRun run = traced(files.directory(), ThreeFiles::asking(), files.home());
    const auto countOf = [&](SystemCall kind) {
        return std::count_if(run.calls.begin(), run.calls.end(),
                             [&](const TracedCall& call) { return callOf(call) == kind; });
    };
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(countOf(SystemCall::rename), 3);
    EXPECT_EQ(countOf(SystemCall::fsync), 6);
    EXPECT_EQ(files.versions(), std::vector(3, Version::newer));
}

}  // namespace
}  // namespace quillmere::test
