#include "work/recall/moment.hpp"

#include "work/recall/block_account.hpp"

#include <algorithm>
#include <map>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using work::Fact;
using work::Passage;
using work::Recall;

/// Every text of the block, its sessions and its reflection is a marker of its own.
Block markedBlock()
{
    Block block = Block::default_(moment);
    block.cycleCount = 3;
    block.outcomes = {{Identifier::random(), "outcome-1"}, {Identifier::random(), "outcome-2"}};
    block.whyValue = "why";
    block.doneTest = "done-test";
    block.hazards = "block-hazards";
    block.measurableCheck = "check";
    block.contextNotes = "notes";
    for (int number = 1; number <= 2; ++number) {
        const std::string mark = "-of-" + std::to_string(number);
        SessionPlan plan = SessionPlan::blank(Identifier::random());
        plan.intendedOutcome = "meant" + mark;
        plan.firstAction = "first" + mark;
        plan.hazardsMitigation = "hazards" + mark;
        plan.nicuFraming = "framing" + mark;
        plan.blockOutcomeID = block.outcomes.front().id;
        WorkSession session{.id = Identifier::random(),
                            .number = number,
                            .plan = plan,
                            .startedAt = moment,
                            .plannedDurationSeconds = 1500,
                            .pausedAt = {},
                            .accumulatedPausedSeconds = 0,
                            .endedAt = moment + 1500,
                            .review = {}};
        session.review = SessionReview{.id = Identifier::random(),
                                       .completion = CompletionResult::half,
                                       .noteworthyResult = "result" + mark,
                                       .distractions = "distractions" + mark,
                                       .improvement = "improvement" + mark};
        block.sessions.push_back(session);
    }
    block.reflection = BlockReview{.outputProduced = "output",
                                   .normalComparison = "comparison",
                                   .boggedDown = "bogged",
                                   .wentWell = "well",
                                   .lessons = "lessons"};
    block.completedAt = moment + 3000;
    return block;
}

SessionPlan markedPlan()
{
    SessionPlan plan = SessionPlan::blank(Identifier::random());
    plan.intendedOutcome = "next-meant";
    plan.firstAction = "next-first";
    plan.hazardsMitigation = "next-hazards";
    plan.nicuFraming = "next-framing";
    return plan;
}

/// The work in this state with the marked block in hand.
workspace::Situation situationIn(WorkflowState workflowState)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.workflowState = workflowState;
    state.currentBlock = markedBlock();
    state.currentBlock->reflection.reset();
    state.currentBlock->completedAt.reset();
    WorkSession& last = state.currentBlock->sessions.back();
    if (workflowState == WorkflowState::focusing) {
        last.endedAt.reset();
    }
    if (workflowState == WorkflowState::focusing || workflowState == WorkflowState::sessionReview) {
        last.review.reset();
    }
    if (workflowState == WorkflowState::breaking || workflowState == WorkflowState::sessionPlanning) {
        state.plannedNextSession = markedPlan();
    }
    return {.state = std::move(state), .events = {}, .now = moment + 1500};
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

void expectAll(const std::vector<std::string>& markers, const std::string& text)
{
    for (const std::string& marker : markers) {
        EXPECT_NE(text.find(marker), std::string::npos) << marker << " is not in\n" << text;
    }
}

TEST(Recall, hasAtEachMomentTheWordsThatHelp)
{
    const std::map<WorkflowState, std::vector<std::string>> promised = {
        {WorkflowState::sessionPlanning,
         {"why", "done-test", "block-hazards", "result-of-2", "distractions-of-2", "improvement-of-2",
          "next-meant", "next-first", "next-hazards", "next-framing", "Sessions=½ ½ ·"}},
        {WorkflowState::focusing,
         {"[meant-of-2]", "First=first-of-2", "If=hazards-of-2", "View=framing-of-2", "For=outcome-1", "=why",
          "Today=25 min", "½ 1=meant-of-1", "◐ 2=meant-of-2", "Done when=done-test"}},
        {WorkflowState::sessionReview, {"meant-of-2", "first-of-2", "hazards-of-2", "framing-of-2"}},
        {WorkflowState::breaking,
         {"meant-of-2", "result-of-2", "distractions-of-2", "improvement-of-2", "next-meant", "next-first",
          "next-hazards", "next-framing"}},
        {WorkflowState::blockReview,
         {"outcome-1", "outcome-2", "½ 1=meant-of-1: result-of-1", "½ 2=meant-of-2: result-of-2",
          "done-test?", "check?", "Foreseen=block-hazards", "Foreseen 1=hazards-of-1",
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
    expectAll({"Worked=3 h 20 min of 4 h", "Finished=4 blocks", "Time=17:00 to 18:30", "outcome-1",
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
    situation.state.currentBlock->sessions.back().plan.intendedOutcome = "outcome-1";
    EXPECT_NE(recallText(work::recallAt(situation, {})).find("For=why"), std::string::npos);
    situation = situationIn(WorkflowState::sessionReview);
    situation.state.currentBlock->sessions.back().plan.intendedOutcome = "outcome-1";
    const std::string text = recallText(work::recallAt(situation, {}));
    EXPECT_NE(text.find("Outcome=outcome-1"), std::string::npos) << text;
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

/// All texts of the JSON of a record, but not identifiers, times and names of cases.
std::vector<std::string> wordsOf(const Block& block)
{
    std::vector<std::string> words = {block.whyValue,         block.doneTest,     block.hazards,
                                      block.measurableCheck,  block.contextNotes, block.outcomes[0].title,
                                      block.outcomes[1].title};
    for (const WorkSession& session : block.sessions) {
        words.insert(words.end(),
                     {session.plan.intendedOutcome, session.plan.firstAction, session.plan.hazardsMitigation,
                      session.plan.nicuFraming, session.review->noteworthyResult,
                      session.review->distractions, session.review->improvement});
    }
    for (const auto& text : {&BlockReview::outputProduced, &BlockReview::normalComparison,
                             &BlockReview::boggedDown, &BlockReview::wentWell, &BlockReview::lessons}) {
        words.push_back(*block.reflection.*text);
    }
    return words;
}

TEST(AccountOfABlock, hasEveryWordOfIt)
{
    const Block block = markedBlock();
    expectAll(wordsOf(block), recallText(work::accountOf(block, moment)));
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
              (std::vector<Fact>{{"Outcome", "outcome-1"},
                                 {"½ 1", "meant-of-1: result-of-1", half},
                                 {"Outcome", "outcome-2"},
                                 {"Outcome", "none of these"},
                                 {"½ 2", "meant-of-2: result-of-2", half}}));
}

}  // namespace
}  // namespace quillmere::test
