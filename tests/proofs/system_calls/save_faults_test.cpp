// A fault at every system call of a save.
//
// Each call in turn fails without effect, with each error that it can return, either once or together with
// all later calls of the same name. Other proofs show crashes of the process and of the machine.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <set>

#include "proofs/support/figures.hpp"
#include "proofs/system_calls/call_errors.hpp"
#include "proofs/system_calls/faulted_saves.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// The saves with each fault; made once per process.
const std::vector<FaultedSave>& faultedSaves()
{
    static const std::vector<FaultedSave> all = [] {
        std::vector<FaultedSave> made;
        forEveryFaultedSave(everyError, [&](const FaultedSave& save) { made.push_back(save); });
        return made;
    }();
    return all;
}

/// Fails the test for every save for which `holds` returns false.
template <class Holds>
std::size_t expectOfEverySave(Holds holds)
{
    for (const FaultedSave& save : faultedSaves()) {
        EXPECT_TRUE(holds(save)) << testing::PrintToString(save);
    }
    return faultedSaves().size();
}

TEST(ASave, opensNoFileThatItMightOverwrite)
{
    for (const Situation& situation : situations()) {
        std::size_t created = 0;
        for (const CallRecord& record : undisturbedCalls(situation)) {
            created += record.creates ? 1 : 0;
            EXPECT_EQ(record.creates, record.isExclusive) << record.path;
        }
        EXPECT_EQ(created, situation.store == StoreKind::state ? 2u : 1u);
    }
}

TEST(ASave, syncsTheNameOfEveryDirectoryThatItMakes)
{
    std::size_t made = 0;
    for (const Situation& situation : situations()) {
        std::set<fs::path> unsynced;
        for (const CallRecord& record : undisturbedCalls(situation)) {
            if (record.call == SystemCall::mkdir && record.error == 0) {
                unsynced.insert(fs::path(record.path).parent_path());
                ++made;
            } else if (record.call == SystemCall::fsync) {
                unsynced.erase(record.path);
            }
        }
        EXPECT_TRUE(unsynced.empty()) << testing::PrintToString(unsynced);
    }
    EXPECT_GT(made, 0u);
}

TEST(ASaveWithAFault, isTriedAtEveryCall)
{
    std::set<SystemCall> met;
    const std::size_t count = expectOfEverySave([&](const FaultedSave& save) {
        met.insert(save.fault.call);
        return save.faultCame;
    });
    // A save never calls read and fstat.
    EXPECT_EQ(met.size(), systemCallCount - 2);
    EXPECT_GE(count, amount(500, 1500));
    reportFigure("A fault at every system call of a save", "faulted saves", count);
}

TEST(ASaveWithAFault, leavesEachFileOldOrNewAsTheRenamesSay)
{
    expectOfEverySave([](const FaultedSave& save) { return save.content.files == save.expected.files; });
}

TEST(ASaveWithAFault, reportsTheErrorOfTheCall)
{
    expectOfEverySave([](const FaultedSave& save) { return save.error == save.expected.error; });
}

TEST(ASaveWithAFault, leavesNoTemporaryFile)
{
    expectOfEverySave([](const FaultedSave& save) { return save.content.others.empty(); });
}

TEST(ASaveWithAFault, leavesNoFileOpenAndClosesNoneTwice)
{
    expectOfEverySave([](const FaultedSave& save) { return save.leftOpen == 0 && !save.closedNothing; });
}

TEST(ASaveWithAFault, neverLeavesASummaryNewerThanItsState)
{
    expectOfEverySave([](const FaultedSave& save) {
        const std::vector<Version>& files = save.content.files;
        return files.back() != Version::newer || files.front() == Version::newer;
    });
}

TEST(ASaveWithAFault, doesNotStandInTheWayOfTheNext)
{
    expectOfEverySave([](const FaultedSave& save) {
        const std::vector<Version> allNewer(save.nextContent.files.size(), Version::newer);
        return save.nextError == 0 && save.nextContent.files == allNewer && save.nextContent.others.empty();
    });
}

TEST(ASaveWithAFault, goesOnWhenItWasInterruptedOnly)
{
    const auto interruption = [](const CallRecord& record, std::size_t ordinal) {
        std::vector<Fault> faults;
        if (isContinued(record.call) || record.call == SystemCall::close) {
            faults.push_back({.call = record.call, .ordinal = ordinal, .error = EINTR});
            faults.push_back({.call = record.call, .ordinal = ordinal, .error = EINTR, .fromThereOn = true});
        }
        return faults;
    };
    std::size_t count = 0;
    forEveryFaultedSave(interruption, [&](const FaultedSave& save) {
        ++count;
        EXPECT_TRUE(save.error == 0 && save.content.files.front() == Version::newer)
            << testing::PrintToString(save);
    });
    reportFigure("A fault at every system call of a save", "interrupted saves, all continued", count);
}

TEST(ASaveWithAFault, reportsAFailedRenameOfAnUnknownNumberAsAnInputOutputError)
{
    const Situation situation{StoreKind::state, Before::earlierFile, Replacing::plainly};
    const Scene scene(situation);
    const SystemCallWatch watch({{.call = SystemCall::rename, .ordinal = 0, .error = unknownError}});
    try {
        scene.save();
        FAIL() << "nothing was thrown";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::io_error);
    }
}

}  // namespace
}  // namespace quillmere::test
