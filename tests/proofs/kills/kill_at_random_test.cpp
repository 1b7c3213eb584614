// A process that saves as fast as it can is killed at moments that nobody chose.
//
// A fixed seed gives the sizes and the delays; where in a save a delay ends is left to the machine, and
// nothing that is expected here depends on it. What a save of one version and the next have in common is
// nothing: every text of a version carries its number and a hash.
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

/// What one kill left, and what the save after it made of it.
struct Aftermath {
    std::uint64_t completed;
    std::uint64_t begun;
    Numbers numbers;
    bool leftoversAreHidden;
    std::size_t leftoverCount;
    Numbers next;
};

/// Between 0.05 and 50 milliseconds, each power of ten as often as the next.
useconds_t delay(std::mt19937_64& random)
{
    const double share = static_cast<double>(random() >> 11) * 0x1p-53;
    return static_cast<useconds_t>(50 * std::pow(1000, share));
}

/// Removes what the kill left, for there would be gigabytes of it in the end.
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

/// All kills; made once in a process.
const std::vector<Aftermath>& aftermaths()
{
    static const std::vector<Aftermath> all = [] {
        std::vector<Aftermath> made(amount(40, 10'000));
        std::mt19937_64 random(20261115);
        const TemporaryDirectory directory;
        std::uint64_t last = 1;
        saveNumbered(directory.path(), numberedState(last, smallSize));
        for (Aftermath& aftermath : made) {
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
    for (const Aftermath& aftermath : aftermaths()) {
        for (const auto& number :
             {aftermath.numbers.state, aftermath.numbers.agent, aftermath.numbers.widget}) {
            EXPECT_TRUE(number == aftermath.completed || number == aftermath.begun)
                << number.value_or(0) << " is neither " << aftermath.completed << " nor " << aftermath.begun;
        }
    }
    const auto inASave =
        std::count_if(aftermaths().begin(), aftermaths().end(),
                      [](const Aftermath& aftermath) { return aftermath.completed != aftermath.begun; });
    EXPECT_GT(inASave, 0);
    reportFigure("SIGKILL at random moments", "kills of a process that saves", aftermaths().size());
    reportFigure("SIGKILL at random moments", "of these, in the midst of a save", inASave);
}

TEST(AKillAtRandom, leavesNoSummaryNewerThanTheState)
{
    for (const Aftermath& aftermath : aftermaths()) {
        EXPECT_LE(aftermath.numbers.agent, aftermath.numbers.state);
        EXPECT_LE(aftermath.numbers.widget, aftermath.numbers.agent);
    }
}

TEST(AKillAtRandom, isMadeGoodByTheNextSave)
{
    for (const Aftermath& aftermath : aftermaths()) {
        const std::uint64_t saved = aftermath.begun + 1;
        EXPECT_EQ(aftermath.next.state, saved);
        EXPECT_EQ(aftermath.next.agent, saved);
        EXPECT_EQ(aftermath.next.widget, saved);
    }
}

TEST(AKillAtRandom, leavesOneHiddenFileAtTheMost)
{
    std::size_t count = 0;
    for (const Aftermath& aftermath : aftermaths()) {
        count += aftermath.leftoverCount;
        EXPECT_TRUE(aftermath.leftoversAreHidden);
        EXPECT_LE(aftermath.leftoverCount, 1u);
    }
    reportFigure("SIGKILL at random moments", "temporary files left, none ever read", count);
}

}  // namespace
}  // namespace quillmere::test
