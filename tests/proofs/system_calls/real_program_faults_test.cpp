// Faults in the real program, injected by strace, beside those of failing changes.
#include <gtest/gtest.h>

#include <algorithm>

#include "cli/exit_code.hpp"
#include "proofs/support/figures.hpp"
#include "proofs/system_calls/three_files.hpp"
#include "proofs/system_calls/traced_faults.hpp"
#include "workspace/state_home.hpp"

namespace quillmere::test {
namespace {

using cli::ExitCode;

class TheTracedProgram : public testing::Test {
protected:
    void SetUp() override
    {
        if (!canTrace()) {
            GTEST_SKIP() << cannotTrace;
        }
    }
};

/// Runs only in the long form. In the short form save_faults_test.cpp injects the faults into the
/// library in this process, and one trace shows that the program makes the same calls.
class TheProgramWithAFault : public TheTracedProgram {
protected:
    void SetUp() override
    {
        if (!inLongForm()) {
            GTEST_SKIP() << "runs only in the long form";
        }
        TheTracedProgram::SetUp();
    }
};

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
                 "faults while keeping the previous version", count);
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
