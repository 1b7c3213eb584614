// A save that fails and cannot clean up.
#include <gtest/gtest.h>

#include <cerrno>

#include "proofs/support/figures.hpp"
#include "proofs/system_calls/faulted_saves.hpp"

namespace quillmere::test {
namespace {

/// Every save with a fault and an additional failing removal.
std::vector<FaultedSave> makeSavesThatCannotCleanUp()
{
    std::vector<FaultedSave> saves;
    const Situation situation{StoreKind::state, Before::earlierFile, Replacing::durably};
    const std::vector<CallRecord> calls = undisturbedCalls(situation);
    std::vector<std::size_t> ordinals(systemCallCount);
    for (std::size_t index = 0; index < calls.size(); ++index) {
        const std::size_t ordinal = ordinals[static_cast<std::size_t>(calls[index].call)]++;
        for (const Fault& fault : everyError(calls[index], ordinal)) {
            if (fault.call != SystemCall::unlink) {
                const Fault removal{
                    .call = SystemCall::unlink, .ordinal = 0, .error = EACCES, .fromThereOn = true};
                saves.push_back(saveWith(situation, calls, index, fault, {removal}));
            }
        }
    }
    return saves;
}

/// The saves are made once per process.
template <class Judge>
std::size_t forEverySaveThatCannotCleanUp(Judge judge)
{
    static const std::vector<FaultedSave> saves = makeSavesThatCannotCleanUp();
    for (const FaultedSave& save : saves) {
        judge(save);
    }
    return saves.size();
}

TEST(ASaveThatCannotCleanUp, reportsTheFirstErrorNotThatOfTheCleaning)
{
    const std::size_t count = forEverySaveThatCannotCleanUp([](const FaultedSave& save) {
        EXPECT_EQ(save.error, save.expected.error) << testing::PrintToString(save);
    });
    reportFigure("A fault at every system call of a save", "saves with a failing removal besides", count);
}

TEST(ASaveThatCannotCleanUp, leavesEachFileOldOrNewAsTheRenamesSay)
{
    forEverySaveThatCannotCleanUp([](const FaultedSave& save) {
        EXPECT_EQ(save.content.files, save.expected.files) << testing::PrintToString(save);
    });
}

TEST(ASaveThatCannotCleanUp, leavesOneHiddenFileAtTheMost)
{
    std::size_t leftovers = 0;
    forEverySaveThatCannotCleanUp([&](const FaultedSave& save) {
        leftovers += save.content.others.size();
        EXPECT_LE(save.content.others.size(), 1u) << testing::PrintToString(save);
        for (const std::string& name : save.content.others) {
            EXPECT_TRUE(name.starts_with(".") && name.ends_with(".tmp")) << name;
        }
    });
    EXPECT_GT(leftovers, 0u);
}

TEST(ASaveThatCannotCleanUp, doesNotStandInTheWayOfTheNext)
{
    forEverySaveThatCannotCleanUp([](const FaultedSave& save) {
        EXPECT_EQ(save.nextError, 0) << testing::PrintToString(save);
        EXPECT_EQ(save.nextContent.files, (std::vector{Version::newer, Version::newer}))
            << testing::PrintToString(save);
        // Later saves do not touch the leftovers.
        EXPECT_EQ(save.nextContent.others, save.content.others) << testing::PrintToString(save);
    });
}

}  // namespace
}  // namespace quillmere::test
