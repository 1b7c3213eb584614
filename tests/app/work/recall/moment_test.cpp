#include "work/recall/moment.hpp"

#include "work/recall/block_account.hpp"

#include <algorithm>
#include <map>

#include "marked_block.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using work::Fact;
using work::Passage;
using work::Recall;

workspace::Situation situationIn(WorkflowState workflowState)
{
    return {.state = markedStateIn(workflowState), .events = {}, .now = moment + 1500};
}

std::string recallText(const Recall& recall)
{
    std::string text;
    for (const Passage& passage : recall) {
        text += "[" + passage.heading + "]\n";
        for (const Fact& fact : passage.facts) {
            text += fact.label + "=" + fact.text + "\n";
        }
    }
    return text;
}

TEST(Recall, hasAtEachMomentTheWordsThatHelp)
{
    const std::map<WorkflowState, std::vector<std::string>> promised = {
        {WorkflowState::sessionPlanning,
         {"why_value-of-block", "done_test-of-block", "hazards-of-block", "noteworthy_result-of-2",
          "distractions-of-2", "improvement-of-2", "next-intended_outcome", "next-first_action",
          "next-hazards_mitigation", "next-nicu_framing", "Sessions=½ ½ ·"}},
        {WorkflowState::focusing,
         {"[intended_outcome-of-2]", "First=first_action-of-2", "If=hazards_mitigation-of-2",
          "View=nicu_framing-of-2", "For=title-of-1", "=why_value-of-block", "Today=25 min",
          "½ 1=intended_outcome-of-1", "◐ 2=intended_outcome-of-2", "Done when=done_test-of-block"}},
        {WorkflowState::sessionReview,
         {"intended_outcome-of-2", "first_action-of-2", "hazards_mitigation-of-2", "nicu_framing-of-2"}},
        {WorkflowState::breaking,
         {"intended_outcome-of-2", "noteworthy_result-of-2", "distractions-of-2", "improvement-of-2",
          "next-intended_outcome", "next-first_action", "next-hazards_mitigation", "next-nicu_framing"}},
        {WorkflowState::blockReview,
         {"title-of-1", "title-of-2", "½ 1=intended_outcome-of-1: noteworthy_result-of-1",
          "½ 2=intended_outcome-of-2: noteworthy_result-of-2", "done_test-of-block?",
          "measurable_check-of-block?", "Foreseen=hazards-of-block", "Foreseen 1=hazards_mitigation-of-1",
          "Met 1=distractions-of-1", "Met 2=distractions-of-2"}},
    };
    for (const auto& [state, markers] : promised) {
        SCOPED_TRACE(rawValue(state));
        expectAll(markers, recallText(work::recallAt(situationIn(state), {})));
    }
}

TEST(Recall, ofTheDayHasTheWorkTheScheduleAndTheLastLessons)
{
    const TimeZone here("UTC");
    workspace::Situation situation{
        .state = QuillmereState::initial(moment), .events = {}, .now = moment + 3600};
    for (int number = 1; number <= 4; ++number) {
        situation.state.blockHistory.push_back(markedBlock());
        situation.state.blockHistory.back().reflection->lessons = "lesson-" + std::to_string(number);
    }
    situation.state.currentBlock = markedBlock();
    situation.state.currentBlock->sessions.clear();
    situation.state.currentBlock->plannedStart = moment + 7200;
    config::Values values;
    values.dailyGoalSeconds = 4 * 3600;
    const std::string text = recallText(work::recallAt(situation, values));
    expectAll({"Worked=3 h 20 min of 4 h", "Finished=4 blocks", "Time=17:00 to 18:30", "title-of-1",
               "lesson-1", "lesson-3"},
              text);
    EXPECT_EQ(text.find("lesson-4"), std::string::npos);
}

TEST(Recall, ofTheFirstStartSaysWhatABlockIs)
{
    const Recall recall =
        work::recallAt({.state = QuillmereState::initial(moment), .events = {}, .now = moment}, {});
    ASSERT_EQ(recall.size(), 1u);
    EXPECT_EQ(recall.front().facts.size(), 3u);
}

TEST(Recall, saysOnceWhatASessionAndItsOutcomeBothSay)
{
    workspace::Situation situation = situationIn(WorkflowState::focusing);
    situation.state.currentBlock->sessions.back().plan.intendedOutcome = "title-of-1";
    EXPECT_NE(recallText(work::recallAt(situation, {})).find("For=why_value-of-block"), std::string::npos);
    situation = situationIn(WorkflowState::sessionReview);
    situation.state.currentBlock->sessions.back().plan.intendedOutcome = "title-of-1";
    const std::string text = recallText(work::recallAt(situation, {}));
    EXPECT_NE(text.find("Outcome=title-of-1"), std::string::npos) << text;
    EXPECT_EQ(text.find("Towards"), std::string::npos) << text;
}

TEST(Recall, inAFirstSessionHasNoListOfSessions)
{
    workspace::Situation situation = situationIn(WorkflowState::focusing);
    situation.state.currentBlock->sessions.erase(situation.state.currentBlock->sessions.begin());
    const std::string text = recallText(work::recallAt(situation, {}));
    EXPECT_EQ(text.find("◐"), std::string::npos) << text;
}

TEST(Recall, hasTheLastFourSessionsOfMany)
{
    workspace::Situation situation = situationIn(WorkflowState::focusing);
    std::vector<WorkSession>& sessions = situation.state.currentBlock->sessions;
    sessions.insert(sessions.begin(), 3, sessions.front());
    const std::vector<work::Fact> facts = work::recallAt(situation, {}).back().facts;
    EXPECT_EQ(std::count_if(facts.begin(), facts.end(),
                            [](const work::Fact& fact) { return fact.completion.has_value(); }),
              3);
}

TEST(Recall, hasNoEmptyFactsAndNoEmptyPassages)
{
    for (const WorkflowState state : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(state));
        workspace::Situation situation = situationIn(state);
        Block& block = *situation.state.currentBlock;
        block.whyValue = block.doneTest = block.hazards = block.measurableCheck = "";
        block.outcomes.front().title = "";
        for (const Passage& passage : work::recallAt(situation, {})) {
            EXPECT_FALSE(passage.facts.empty()) << passage.heading;
            EXPECT_TRUE(std::none_of(passage.facts.begin(), passage.facts.end(), [](const Fact& fact) {
                return fact.text.empty();
            })) << passage.heading;
        }
    }
}

TEST(AccountOfABlock, hasEveryWordOfIt)
{
    const Block block = markedBlock();
    expectAll(markersOf(block), recallText(work::accountOf(block, moment)));
}

TEST(AccountOfASession, hasItsTimeAndPauses)
{
    const TimeZone here("UTC");
    Block block = markedBlock();
    WorkSession& session = block.sessions.back();
    session.accumulatedPausedSeconds = 300;
    const Passage account = work::accountOf(session, block, moment);
    EXPECT_EQ(account.heading, "½ 2 of 3");
    EXPECT_EQ(account.facts.front(), (Fact{"Time", "15:00 to 15:25, 20 min of focus, 5 min of pauses"}));
}

TEST(OutcomesWithSessions, nameTheSessionsThatServeNoneOfThem)
{
    Block block = markedBlock();
    block.sessions.back().plan.blockOutcomeID.reset();
    constexpr auto half = CompletionResult::half;
    EXPECT_EQ(work::outcomesWithSessions(block),
              (std::vector<Fact>{{"Outcome", "title-of-1"},
                                 {"½ 1", "intended_outcome-of-1: noteworthy_result-of-1", half},
                                 {"Outcome", "title-of-2"},
                                 {"Outcome", "none of these"},
                                 {"½ 2", "intended_outcome-of-2: noteworthy_result-of-2", half}}));
}

}  // namespace
}  // namespace quillmere::test
