// The cost of saving and loading ten years of use, and twice and four times as much.
//
// Growth is judged by counts, which are the same on every machine: bytes of the file, allocations, blocks in
// the state. Times are only reported.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <iomanip>
#include <sstream>

#include "proofs/endurance/process_memory.hpp"
#include "proofs/endurance/years_of_use.hpp"
#include "proofs/support/figures.hpp"
#include "support/failing_allocations.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

/// The cost of saving and loading one amount of use.
struct Cost {
    std::uint64_t sessions;
    std::uint64_t fileBytes;
    std::uint64_t agentFileBytes;
    std::uint64_t savingAllocations;
    std::uint64_t loadingAllocations;
    std::uint64_t blocksHeld;  ///< by the state that was loaded
    std::int64_t residentKilobytes;
    double savingMilliseconds;
    double loadingMilliseconds;
};

template <class Work>
double millisecondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// Saves the state twice and measures the second save, which replaces a file of the same size.
Cost costOf(std::uint64_t blocks)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path(), StateStore::renameReplacing);
    const QuillmereState state = stateAfter(blocks);
    Cost cost{};
    cost.sessions = blocks * sessionsInABlock;
    store.save(state);
    const std::size_t beforeSave = allocationsMade();
    cost.savingMilliseconds = millisecondsOf([&] { store.save(state); });
    cost.savingAllocations = allocationsMade() - beforeSave;

    const std::int64_t residentBefore = residentKilobytes();
    const std::size_t heldBefore = blocksInUse();
    const std::size_t beforeLoad = allocationsMade();
    std::optional<QuillmereState> loaded;
    cost.loadingMilliseconds = millisecondsOf([&] { loaded = store.load(); });
    cost.loadingAllocations = allocationsMade() - beforeLoad;
    cost.blocksHeld = blocksInUse() - heldBefore;
    cost.residentKilobytes = residentKilobytes() - residentBefore;
    EXPECT_TRUE(*loaded == state) << "what was loaded is not what was saved";

    cost.fileBytes = std::filesystem::file_size(store.stateURL());
    cost.agentFileBytes = std::filesystem::file_size(store.agentStateURL());
    return cost;
}

using Costs = std::array<Cost, 3>;  // for one, two and four times the amount

/// Expects that the growth from two to four is twice the growth from one to two, within `allowance`.
void expectProportional(const Costs& costs, std::uint64_t Cost::*count, std::int64_t allowance,
                        const char* what)
{
    const auto at = [&](std::size_t index) { return static_cast<std::int64_t>(costs[index].*count); };
    const std::int64_t firstStep = at(1) - at(0);
    const std::int64_t secondStep = at(2) - at(1);
    EXPECT_GT(firstStep, 0) << what;
    EXPECT_LE(std::abs(secondStep - 2 * firstStep), allowance)
        << what << ": " << at(0) << ", " << at(1) << ", " << at(2);
}

std::string inMegabytes(double bytes)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << bytes / 1'000'000 << " MB";
    return text.str();
}

std::string inMilliseconds(double value)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(0) << value << " ms";
    return text.str();
}

void report(const Cost& cost)
{
    const std::string promise = "Years of use, " + std::to_string(cost.sessions) + " sessions";
    reportFigure(promise, "state file", inMegabytes(static_cast<double>(cost.fileBytes)));
    reportFigure(promise, "time of a save", inMilliseconds(cost.savingMilliseconds));
    reportFigure(promise, "time of a load", inMilliseconds(cost.loadingMilliseconds));
    reportFigure(promise, "memory added by a load",
                 inMegabytes(static_cast<double>(cost.residentKilobytes) * 1'024));
    reportFigure(promise, "blocks of memory asked for by a save", cost.savingAllocations);
    reportFigure(promise, "blocks of memory asked for by a load", cost.loadingAllocations);
    reportFigure(promise, "blocks of memory held by the state", cost.blocksHeld);
}

TEST(YearsOfUse, takeRoomAndMemoryInProportion)
{
    const std::uint64_t blocks = amount(1'160, 29'000) / sessionsInABlock;
    costOf(1);  // allocations that happen once per process
    const Costs costs = {costOf(blocks), costOf(2 * blocks), costOf(4 * blocks)};
    expectProportional(costs, &Cost::fileBytes, 0, "bytes of the state file");
    expectProportional(costs, &Cost::blocksHeld, 0, "blocks held");
    // Growing lists double their capacity: some dozens of allocations for a factor of two.
    expectProportional(costs, &Cost::loadingAllocations, 50, "allocations of a load");
    // A save allocates one growing buffer, whatever the state holds.
    EXPECT_LE(costs[2].savingAllocations, costs[0].savingAllocations + 10);
    for (const Cost& cost : costs) {
        report(cost);
    }
    // The agent's summary contains the current work, not the history.
    EXPECT_EQ(costs[0].agentFileBytes, costs[2].agentFileBytes);
}

}  // namespace
}  // namespace quillmere::test
