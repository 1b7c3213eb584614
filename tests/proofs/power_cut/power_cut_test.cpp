// The power is cut at every moment of one, two and three successive saves.
//
// file_system_model.hpp states the failure model: unsynced data is lost, zeroed, cut short or kept, each part
// independently; syncs are trusted. Every directory that the model permits is created and loaded. Disks that
// ignore a sync or damage durable data are outside of this proof. With plain replacement even completed saves
// may be lost: the file is then an earlier version or, if none was durable, missing, and load() gives an
// initial state as before the first save.
#include <gtest/gtest.h>

#include "proofs/power_cut/violations.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

constexpr std::size_t mostSaves = 3;

TEST(APowerCut, leavesEachFileOldOrNewWhenItIsReplacedDurably)
{
    const auto holds = [](const Found& found, const CutMoment& cut, bool hasEarlier) {
        return isOldOrNew(found.state, cut, hasEarlier) && isOldOrNew(found.agent, cut, hasEarlier) &&
               isOldOrNew(found.widget, cut, hasEarlier);
    };
    const Counts counts = countViolations(Scope::all, mostSaves, StateStore::renameReplacingDurably, holds);
    EXPECT_EQ(counts.violations, 0u);
    reportFigure("Power cut, durable replace", "moments of three saves in a row", counts.moments);
    reportFigure("Power cut, durable replace", "directories loaded, each old or new", counts.directories);
}

TEST(APowerCut, leavesTheStateOldOrNewWhenItsYearsAreCopied)
{
    const Counts counts =
        countViolations(Scope::present, mostSaves, StateStore::renameReplacingDurably, isStateOldOrNew);
    EXPECT_EQ(counts.violations, 0u);
    reportFigure("Power cut, durable replace", "directories loaded whose years were copied",
                 counts.directories);
}

TEST(APowerCut, leavesNoSummaryNewerThanTheStateWhenFilesAreReplacedDurably)
{
    const auto holds = [](const Found& found, const CutMoment&, bool) {
        return isNotNewer(found.agent, found.state) && isNotNewer(found.widget, found.agent);
    };
    EXPECT_EQ(countViolations(Scope::all, mostSaves, StateStore::renameReplacingDurably, holds).violations,
              0u);
}

TEST(APowerCut, leavesNoStateThatLoadsAsSomethingElseWhenItIsReplacedPlainly)
{
    const auto holds = [](const Found& found, const CutMoment& cut, bool hasEarlier) {
        return isSavedOnceOrRefused(found.state, cut, hasEarlier) &&
               isSavedOnceOrRefused(found.agent, cut, hasEarlier);
    };
    // Three plain saves have fourteen times as many possible directories as two.
    const Counts counts =
        countViolations(Scope::state, amount(2, mostSaves), StateStore::renameReplacing, holds);
    EXPECT_EQ(counts.violations, 0u);
    reportFigure("Power cut, plain replace", "moments of three saves in a row", counts.moments);
    reportFigure("Power cut, plain replace", "directories loaded, each old, new or refused",
                 counts.directories);
}

TEST(APowerCut, leavesNoWidgetSummaryThatLoadsAsSomethingElseWhenItIsReplacedPlainly)
{
    const auto holds = [](const Found& found, const CutMoment& cut, bool hasEarlier) {
        return isSavedOnceOrRefused(found.widget, cut, hasEarlier);
    };
    const Counts counts = countViolations(Scope::widget, mostSaves, StateStore::renameReplacing, holds);
    EXPECT_EQ(counts.violations, 0u);
    EXPECT_GT(counts.directories, 20u);
}

}  // namespace
}  // namespace quillmere::test
