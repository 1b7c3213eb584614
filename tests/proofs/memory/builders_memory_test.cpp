// Allocation failures while summaries, timelines and links are built, which involves no file.
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>
#include <quillmere/widget/widget_timeline_plan.hpp>

#include <vector>

#include "running_out.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

/// Inputs of the builders: each workflow state as the engine makes it and with every field in use, and a
/// state with a scheduled block.
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

/// Fails each allocation in `build`, whose last, undisturbed result must equal the expected one.
template <class Build>
Tally runOutInBuilding(Build build)
{
    const auto expected = build();
    // Destroys the result within the attempt, so that only leaks remain.
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
