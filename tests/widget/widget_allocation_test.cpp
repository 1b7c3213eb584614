// Allocations that fail on the widget's side.
#include <quillmere/widget/widget_snapshot_store.hpp>
#include <quillmere/widget/widget_timeline_plan.hpp>

#include <gtest/gtest.h>

#include "support/failing_allocations.hpp"
#include "support/reported_failings.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

TEST(WidgetAllocations, failingInASummaryAreReported)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState state = fullState();
        state.workflowState = workflowState;
        const WidgetSnapshot expected = WidgetSnapshot::make(state, moment);
        expectReportedFailings(2, [&] { EXPECT_EQ(WidgetSnapshot::make(state, moment), expected); });
    }
}

TEST(WidgetAllocations, failingInATimelineAreReported)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::placeholder(moment);
    expectReportedFailings(5, [&] { EXPECT_EQ(WidgetTimelinePlan::entries(snapshot, moment).size(), 2u); });
}

TEST(WidgetAllocations, failingInADeepLinkAreReported)
{
    const std::string link =
        "QUILLMERE://somebody-with-a-long-name@%6Fpen:1/%73ession-planning/?a-long-query-too#x";
    expectReportedFailings(3, [&] { EXPECT_EQ(fromURL<WidgetRoute>(link), WidgetRoute::sessionPlanning); });
    expectReportedFailings(1, [&] { EXPECT_EQ(url(WidgetRoute::sessionPlanning).size(), 33u); });
}

class WidgetStoreAllocations : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const WidgetSnapshotStore store{directory.path()};
    const WidgetSnapshot oldSnapshot = WidgetSnapshot::empty(moment);
    const WidgetSnapshot newSnapshot = WidgetSnapshot::placeholder(moment);
};

TEST_F(WidgetStoreAllocations, failingInASaveLeaveAWholeFile)
{
    store.save(newSnapshot);
    const std::string newText = textOf(store.snapshotURL());
    store.save(oldSnapshot);
    const std::string oldText = textOf(store.snapshotURL());
    const std::size_t blocks = blocksInUse();
    std::size_t leaking = 0;
    const std::size_t total =
        failEveryAllocation([&] { store.save(newSnapshot); },
                            [&](bool threw) {
                                leaking += blocksInUse() == blocks ? 0 : 1;
                                const std::string text = textOf(store.snapshotURL());
                                // Only a failure of the clean-up is not reported.
                                EXPECT_TRUE(text == newText || (threw && text == oldText));
                                EXPECT_EQ(directory.names().size(), 1u);
                                writeText(store.snapshotURL(), oldText);
                            });
    EXPECT_GT(total, 5u);
    EXPECT_EQ(leaking, 0u);
    EXPECT_EQ(textOf(store.snapshotURL()), newText);
}

TEST_F(WidgetStoreAllocations, failingInALoadAreReportedAsBadAlloc)
{
    store.save(newSnapshot);
    // Not as `unreadable`: the summary can be read when there is memory again.
    expectReportedFailings(
        5, [&] { EXPECT_EQ(store.load(), newSnapshot); }, parserAsksTwice);
}

TEST_F(WidgetStoreAllocations, failingInALoadOfABrokenFileAreReportedAsBadAlloc)
{
    std::string text(JsonEncoder(JsonLayout::compact).encode(newSnapshot).view());
    text.replace(text.find("\"phase\":\"focusing\""), 18, "\"phase\":\"focusinG\"");
    writeText(store.snapshotURL(), text);
    expectReportedFailings(
        5,
        [&] {
            try {
                store.load();
                ADD_FAILURE() << "nothing was thrown";
            } catch (const WidgetSnapshotLoadError&) {
            }
        },
        parserAsksTwice);
}

}  // namespace
}  // namespace quillmere::test
