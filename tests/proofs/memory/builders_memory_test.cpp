// Memory that runs out while something is built that no file sees: summaries, timelines, links.
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>
#include <quillmere/widget/widget_timeline_plan.hpp>

#include <vector>

#include "running_out.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

/// What the builders are given: each workflow state as the engine leaves it and with every field in use, and
/// one that waits.
std::vector<QuillmereState> states()
{
    std::vector<QuillmereState> all = {stateWithScheduledBlock()};
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        all.push_back(stateIn(workflowState));
        all.push_back(fullState());
        all.back().workflowState = workflowState;
    }
    return all;
}

/// Runs out in `build`, which must come to what it comes to undisturbed.
template <class Build>
Tally runOutInBuilding(Build build)
{
    const auto expected = build();
    // Given back within the attempt, so that only what is lost stays.
    const Tally tally = runOutIn([&] { static_cast<void>(build()); }, [](bool threw) { return threw; });
    EXPECT_EQ(build(), expected);
    return tally;
}

TEST(MemoryRunningOut, inTheAgentsSummaryIsReported)
{
    const StateStore store(
        "never-touched", [] { return moment; }, StateStore::renameReplacing);
    Tally tally;
    for (const QuillmereState& state : states()) {
        tally += runOutInBuilding([&] { return store.agentSnapshot(state, moment); });
    }
    constexpr std::size_t atLeast = 200;
    expectWhole("agent's summary", tally, atLeast);
}

TEST(MemoryRunningOut, inTheWidgetsSummaryIsReported)
{
    Tally tally;
    for (const QuillmereState& state : states()) {
        tally += runOutInBuilding([&] { return WidgetSnapshot::make(state, moment); });
    }
    constexpr std::size_t atLeast = 20;
    expectWhole("widget's summary", tally, atLeast);
}

TEST(MemoryRunningOut, inATimelineIsReported)
{
    Tally tally;
    for (const QuillmereState& state : states()) {
        const WidgetSnapshot snapshot = WidgetSnapshot::make(state, moment);
        tally += runOutInBuilding([&] { return WidgetTimelinePlan::entries(snapshot, moment); });
    }
    constexpr std::size_t atLeast = 50;
    expectWhole("widget's timeline", tally, atLeast);
}

TEST(MemoryRunningOut, inADeepLinkIsReported)
{
    Tally tally;
    for (const WidgetRoute route : allCases<WidgetRoute>()) {
        tally += runOutInBuilding([&] { return url(route); });
        const std::string plain = url(route);
        const std::string strange = "QUILLMERE://somebody-with-a-long-name@%6Fpen:1/" +
                                    std::string(rawValue(route)) + "/?a-long-query-too#x";
        for (const std::string& link : {plain, strange, plain + "/further", plain + "%2", "x" + plain}) {
            tally += runOutInBuilding([&] { return fromURL<WidgetRoute>(link); });
        }
    }
    constexpr std::size_t atLeast = 30;
    expectWhole("deep links", tally, atLeast);
}

}  // namespace
}  // namespace quillmere::test
