// A process that saves as fast as possible is killed at random moments.
//
// A fixed seed determines the sizes and the delays. The reached point of the save depends on the machine, and
// no expectation depends on it. Successive versions share no text: every text carries the version's number
// and a hash.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "proofs/kills/leftovers.hpp"
#include "proofs/kills/numbered_versions.hpp"
#include "proofs/kills/saving_process.hpp"
#include "proofs/support/figures.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

constexpr std::size_t smallSize = 1'000;

/// The files after one kill, and after the next save.
struct RandomAftermath {
    std::uint64_t completed;
    std::uint64_t begun;
    Numbers numbers;
    bool leftoversAreHidden;
    std::size_t leftoverCount;
    Numbers next;
};

/// Between 0.05 and 50 milliseconds, distributed evenly over the powers of ten.
useconds_t delay(std::mt19937_64& random)
{
    const double share = static_cast<double>(random() >> 11) * 0x1p-53;
    return static_cast<useconds_t>(50 * std::pow(1000, share));
}

/// Removes the files left by the kill, which would add up to gigabytes.
std::vector<std::string> takeLeftovers(const TemporaryDirectory& directory)
{
    std::vector<std::string> names = directory.names();
    for (const char* const own : {"agent-state.json", "state.json", "widget-snapshot.json"}) {
        std::erase(names, own);
    }
    for (const std::string& name : names) {
        std::filesystem::remove(directory.path() / name);
    }
    return names;
}

/// The results of all kills; made once per process.
const std::vector<RandomAftermath>& randomAftermaths()
{
    static const std::vector<RandomAftermath> all = [] {
        std::vector<RandomAftermath> made(amount(40, 10'000));
        std::mt19937_64 random(20261115);
        const TemporaryDirectory directory;
        std::uint64_t last = 1;
        saveNumbered(directory.path(), numberedState(last, smallSize));
        for (RandomAftermath& aftermath : made) {
            SavingProcess process(directory.path(), last + 1);
            process.waitForBeginning();
            ::usleep(delay(random));
            process.kill();
            aftermath.completed = process.completed();
            aftermath.begun = process.begun();
            aftermath.numbers = loadNumbered(directory.path());
            const std::vector<std::string> leftovers = takeLeftovers(directory);
            aftermath.leftoversAreHidden = areHiddenTemporaries(leftovers);
            aftermath.leftoverCount = leftovers.size();
            last = aftermath.begun + 1;
            saveNumbered(directory.path(), numberedState(last, smallSize));
            aftermath.next = loadNumbered(directory.path());
        }
        return made;
    }();
    return all;
}

TEST(AKillAtRandom, leavesEachFileOldOrNew)
{
    for (const RandomAftermath& aftermath : randomAftermaths()) {
        for (const auto& number :
             {aftermath.numbers.state, aftermath.numbers.agent, aftermath.numbers.widget}) {
            EXPECT_TRUE(number == aftermath.completed || number == aftermath.begun)
                << number.value_or(0) << " is neither " << aftermath.completed << " nor " << aftermath.begun;
        }
    }
    const auto inASave = std::count_if(
        randomAftermaths().begin(), randomAftermaths().end(),
        [](const RandomAftermath& aftermath) { return aftermath.completed != aftermath.begun; });
    EXPECT_GT(inASave, 0);
    reportFigure("SIGKILL at random moments", "kills of a process that saves", randomAftermaths().size());
    reportFigure("SIGKILL at random moments", "of these, during a save", inASave);
}

TEST(AKillAtRandom, leavesNoSummaryNewerThanTheState)
{
    for (const RandomAftermath& aftermath : randomAftermaths()) {
        EXPECT_LE(aftermath.numbers.agent, aftermath.numbers.state);
        EXPECT_LE(aftermath.numbers.widget, aftermath.numbers.agent);
    }
}

TEST(AKillAtRandom, isRepairedByTheNextSave)
{
    for (const RandomAftermath& aftermath : randomAftermaths()) {
        const std::uint64_t saved = aftermath.begun + 1;
        EXPECT_EQ(aftermath.next.state, saved);
        EXPECT_EQ(aftermath.next.agent, saved);
        EXPECT_EQ(aftermath.next.widget, saved);
    }
}

TEST(AKillAtRandom, leavesOneHiddenFileAtTheMost)
{
    std::size_t count = 0;
    for (const RandomAftermath& aftermath : randomAftermaths()) {
        count += aftermath.leftoverCount;
        EXPECT_TRUE(aftermath.leftoversAreHidden);
        EXPECT_LE(aftermath.leftoverCount, 1u);
    }
    reportFigure("SIGKILL at random moments", "remaining temporary files, none ever read", count);
}

}  // namespace
}  // namespace quillmere::test
