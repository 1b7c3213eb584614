#include "work/describe.hpp"

#include <functional>
#include <set>

#include "program_testing.hpp"
#include "work/break_extension.hpp"
#include "workspace/catching_up.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using Sentences = std::vector<std::string>;
using Edit = std::function<void(QuillmereState&)>;

constexpr WorkflowEngine workflow;

QuillmereState edited(QuillmereState state, const Edit& edit)
{
    edit(state);
    return state;
}

Block scheduledBlock() { return *stateWithScheduledBlock().currentBlock; }

QuillmereState inEditing()
{
    return edited(stateWithScheduledBlock(),
                  [](QuillmereState& state) { workflow.editScheduledBlock(state, moment); });
}

QuillmereState paused()
{
    return edited(stateIn(WorkflowState::focusing),
                  [](QuillmereState& state) { workflow.pauseFocus(state, moment + 60); });
}

QuillmereState inLastReview()
{
    return edited(stateIn(WorkflowState::blockReview), [](QuillmereState& state) {
        state.workflowState = WorkflowState::sessionReview;
        state.currentBlock->sessions.back().review.reset();
    });
}

QuillmereState withQuestion()
{
    return edited(stateIn(WorkflowState::idle),
                  [](QuillmereState& state) { workflow.addQuestion(state, "May I?", moment); });
}

struct OperationExample {
    Step step;
    QuillmereState before;
    Edit operation;
    std::string sentence;
};

/// Every operation of the engine, in the order of the map of the workflow.
std::vector<OperationExample> examples()
{
    using enum WorkflowState;
    return {
        {Step::beginBlockPlanning, stateIn(idle), [](auto& s) { workflow.beginBlockPlanning(s, moment); },
         "planning of a block begun"},
        {Step::startBlock, stateIn(blockPlanning),
         [](auto& s) { workflow.startBlock(s, sampleBlock(1), moment); }, "block begun: Chapter one"},
        {Step::startBlock, inEditing(), [](auto& s) { workflow.startBlock(s, sampleBlock(1), moment); },
         "block begun: Chapter one"},
        {Step::scheduleBlock, stateIn(blockPlanning),
         [](auto& s) { workflow.scheduleBlock(s, scheduledBlock(), moment); },
         "block scheduled for 16:00: Chapter one"},
        {Step::scheduleBlock, inEditing(),
         [](auto& s) {
             Block block = scheduledBlock();
             block.whyValue = "Another reason";
             workflow.scheduleBlock(s, block, moment);
         },
         "block scheduled for 16:00: Chapter one"},
        {Step::editScheduledBlock, stateWithScheduledBlock(),
         [](auto& s) { workflow.editScheduledBlock(s, moment); },
         "scheduled block opened for editing: Chapter one"},
        {Step::cancelScheduledBlock, stateWithScheduledBlock(),
         [](auto& s) { workflow.cancelScheduledBlock(s, moment); }, "scheduled block cancelled: Chapter one"},
        {Step::startScheduledBlockNow, stateWithScheduledBlock(),
         [](auto& s) { workflow.startScheduledBlockNow(s, moment); },
         "scheduled block begun by hand: Chapter one"},
        {Step::evaluateSchedule, stateWithScheduledBlock(),
         [](auto& s) { workspace::catchUp(s, moment + 3'600); },
         "scheduled block started at 16:00: Chapter one"},
        {Step::startFocus, stateIn(sessionPlanning),
         [](auto& s) { workflow.startFocus(s, samplePlan(1), moment); }, "focus session 1 started"},
        {Step::pauseFocus, stateIn(focusing), [](auto& s) { workflow.pauseFocus(s, moment); },
         "focus session 1 paused"},
        {Step::resumeFocus, paused(), [](auto& s) { workflow.resumeFocus(s, moment + 120); },
         "focus session 1 resumed"},
        {Step::endFocus, stateIn(focusing), [](auto& s) { workflow.endFocus(s, moment + 600); },
         "focus session 1 ended early at 15:10"},
        {Step::endFocus, paused(), [](auto& s) { workflow.endFocus(s, moment + 600); },
         "focus session 1 ended early at 15:10"},
        {Step::endFocus, stateIn(focusing), [](auto& s) { workspace::catchUp(s, moment + 3'600); },
         "focus session 1 ended at 15:25"},
        {Step::saveReviewAndStartBreak, stateIn(sessionReview),
         [](auto& s) { workflow.saveReviewAndStartBreak(s, sampleReview(1), samplePlan(2), moment); },
         "review of session 1 saved"},
        {Step::saveLastReview, inLastReview(),
         [](auto& s) { workflow.saveReviewAndStartBreak(s, sampleReview(1), {}, moment); },
         "review of session 3 saved"},
        {Step::announceBreakEnd, stateIn(breaking), [](auto& s) { workspace::catchUp(s, moment + 3'600); },
         "break was over at 15:05"},
        {Step::extendBreak, stateIn(breaking), [](auto& s) { workflow.extendBreak(s, 300, moment); },
         "break extended by 5 min"},
        {Step::endBreak, stateIn(breaking), [](auto& s) { workflow.endBreak(s, moment + 299); },
         "break skipped"},
        {Step::endBreak, stateIn(breaking), [](auto& s) { workflow.endBreak(s, moment + 300); },
         "break ended"},
        {Step::completeBlockReview, stateIn(blockReview),
         [](auto& s) { workflow.completeBlockReview(s, sampleReflection(), moment); },
         "block finished: Chapter one"},
        {Step::addQuestion, stateIn(focusing), [](auto& s) { workflow.addQuestion(s, "May I?", moment); },
         "question was asked at 15:00: May I?"},
        {Step::answerQuestion, withQuestion(),
         [](auto& s) { workflow.answerQuestion(s, s.agentQuestions[0].id, "No", moment); },
         "question answered: May I?"},
    };
}

TEST(Describe, hasOneSentenceForEveryOperationOfTheEngine)
{
    const TimeZone utc("UTC");
    std::set<Step> described;
    for (const OperationExample& example : examples()) {
        described.insert(example.step);
        EXPECT_EQ(work::describe(example.before, edited(example.before, example.operation)),
                  Sentences{example.sentence});
    }
    EXPECT_EQ(described.size(), transition_table::rows.size());
}

TEST(Describe, hasNoSentenceForEqualStates)
{
    for (const OperationExample& example : examples()) {
        EXPECT_EQ(work::describe(example.before, example.before), Sentences{});
    }
    EXPECT_EQ(work::describe(fullState(), fullState()), Sentences{});
}

TEST(Describe, hasASentenceForEachOfSeveralChangesInTheirOrder)
{
    const TimeZone utc("UTC");
    const QuillmereState before = stateIn(WorkflowState::breaking);
    QuillmereState state = before;
    workflow.extendBreak(state, 60, moment + 60);
    workflow.addQuestion(state, "May I?", moment + 70);
    workflow.endBreak(state, moment + 120);
    workflow.startFocus(state, std::nullopt, moment + 120);
    workflow.pauseFocus(state, moment + 180);
    workflow.answerQuestion(state, state.agentQuestions[0].id, "No", moment + 190);
    workflow.resumeFocus(state, moment + 240);
    workspace::catchUp(state, moment + 7'200);
    workflow.saveReviewAndStartBreak(state, sampleReview(2), samplePlan(3), moment + 7'200);
    work::extendBreak(state, 600, moment + 7'200);
    EXPECT_EQ(
        work::describe(before, state),
        (Sentences{"break skipped", "focus session 2 started", "focus session 2 paused for 1 min",
                   "focus session 2 ended at 15:28", "review of session 2 saved", "break extended by 10 min",
                   "question was asked at 15:01: May I?", "question answered: May I?"}));
}

TEST(Describe, namesTheStartOfABlockThatWasScheduledMeanwhile)
{
    const TimeZone utc("UTC");
    for (const QuillmereState& before : {inEditing(), stateIn(WorkflowState::blockPlanning)}) {
        QuillmereState state = before;
        workflow.scheduleBlock(state, scheduledBlock(), moment);
        workspace::catchUp(state, moment + 3'600);
        EXPECT_EQ(work::describe(before, state), Sentences{"scheduled block started at 16:00: Chapter one"});
    }
}

TEST(Describe, namesTheSessionsOfABlockThatBeganOrFinishedMeanwhile)
{
    const TimeZone utc("UTC");
    QuillmereState inWork = stateIn(WorkflowState::sessionPlanning);
    workflow.startFocus(inWork, samplePlan(1), moment);
    const Sentences begun = {"block begun: Chapter one", "focus session 1 started"};
    EXPECT_EQ(work::describe(stateIn(WorkflowState::blockPlanning), inWork), begun);
    QuillmereState finished = inLastReview();
    workflow.saveReviewAndStartBreak(finished, sampleReview(3), {}, moment);
    workflow.completeBlockReview(finished, sampleReflection(), moment);
    EXPECT_EQ(work::describe(inLastReview(), finished),
              (Sentences{"review of session 3 saved", "block finished: Chapter one"}));
    EXPECT_EQ(work::describe(finished, inLastReview()),
              (Sentences{"review of session 3 removed", "finished block taken up again: Chapter one"}));
}

TEST(Describe, namesWholeBlocksOnly)
{
    const TimeZone utc("UTC");
    const QuillmereState before = stateIn(WorkflowState::blockReview);
    QuillmereState state = before;
    workflow.completeBlockReview(state, sampleReflection(), moment);
    Block other = blockInWork(2, 3);
    other.outcomes = {{.id = identifier(1), .title = ""}, {.id = identifier(2), .title = "Chapter three"}};
    state.blockHistory.insert(state.blockHistory.begin(), other);
    workflow.beginBlockPlanning(state, moment);
    EXPECT_EQ(work::describe(before, state),
              (Sentences{"block finished: Chapter one", "block finished: Chapter three",
                         "planning of a block begun"}));
}

TEST(Describe, showsTheDayOfATimeOnAnotherDayThanTheChange)
{
    const TimeZone utc("UTC");
    const QuillmereState before = stateIn(WorkflowState::blockPlanning);
    QuillmereState state = before;
    Block block = scheduledBlock();
    block.plannedStart = moment + 86'400;
    workflow.scheduleBlock(state, block, moment);
    EXPECT_EQ(work::describe(before, state), Sentences{"block scheduled for 2026-11-16 15:00: Chapter one"});
}

TEST(Describe, keepsTextsOfOthersOnOneShortLine)
{
    const TimeZone utc("UTC");
    const QuillmereState before = stateIn(WorkflowState::idle);
    QuillmereState state = before;
    workflow.addQuestion(state, "a\n\x1b[2J" + std::string(1'000'000, 'x'), moment);
    EXPECT_EQ(work::describe(before, state),
              Sentences{"question was asked at 15:00: a \uFFFD[2J" + std::string(53, 'x') + "\u2026"});
}

/// What no operation of the engine does: a file that was edited, or a person who steered.
struct HandEdit {
    QuillmereState before;
    Edit edit;
    Sentences sentences;
};

WorkSession& lastSession(QuillmereState& state) { return state.currentBlock->sessions.back(); }

std::vector<HandEdit> handEditsOfBlocks()
{
    using enum WorkflowState;
    return {
        {stateIn(blockPlanning), [](auto& s) { s.workflowState = idle; }, {"planning of a block given up"}},
        {inEditing(), [](auto& s) { s.workflowState = idle; }, {"block scheduled for 16:00: Chapter one"}},
        {stateWithScheduledBlock(),
         [](auto& s) { *s.currentBlock->plannedStart = moment + 60; },
         {"block scheduled for 15:01: Chapter one"}},
        {stateIn(sessionPlanning),
         [](auto& s) {
             s.workflowState = idle;
             s.currentBlock.reset();
         },
         {"block dropped: Chapter one"}},
        {stateIn(breaking),
         [](auto& s) {
             s.workflowState = blockReview;
             s.breakStartedAt.reset();
             s.plannedNextSession.reset();
         },
         {"block brought to its end early: Chapter one"}},
        {stateIn(focusing),
         [](auto& s) {
             s.currentBlock->whyValue = "";
             s.currentBlock->outcomes.pop_back();
             s.currentBlock->cycleCount = 9;
         },
         {"block changed: outcome, why, cycles"}},
        {stateIn(focusing), [](auto& s) { s.currentBlock->completedAt = moment; }, {"other details changed"}},
        {stateIn(focusing),
         [](auto& s) { s.workflowState = complete; },
         {"work moved: from focusing to complete"}},
        {stateIn(complete), [](auto& s) { s.workflowState = idle; }, {"work moved: from complete to idle"}},
        {fullState(), [](auto& s) { s.blockHistory.clear(); }, {"finished block deleted: Chapter one"}},
        {fullState(),
         [](auto& s) { s.blockHistory[0].reflection->lessons = "None"; },
         {"finished block changed: Chapter one"}},
        {edited(stateIn(blockReview),
                [](auto& s) { workflow.completeBlockReview(s, sampleReflection(), moment); }),
         [](auto& s) {
             s.workflowState = blockReview;
             s.currentBlock = s.blockHistory[0];
             s.blockHistory.clear();
         },
         {"finished block taken up again: Chapter one"}},
    };
}

/// Another block in the place of one that was in a break.
QuillmereState withAnotherBlock()
{
    return edited(stateIn(WorkflowState::sessionPlanning), [](QuillmereState& state) {
        state.currentBlock = sampleBlock(2);
        state.currentBlock->outcomes.clear();
    });
}

std::vector<HandEdit> handEditsOfSessions()
{
    using enum WorkflowState;
    return {
        {stateIn(focusing),
         [](auto& s) { lastSession(s).plannedDurationSeconds += 600; },
         {"focus session 1 lengthened by 10 min"}},
        {stateIn(focusing),
         [](auto& s) { lastSession(s).plannedDurationSeconds -= 300; },
         {"focus session 1 shortened by 5 min"}},
        {stateIn(focusing),
         [](auto& s) { lastSession(s).accumulatedPausedSeconds += 60; },
         {"focus session 1 paused for 1 min"}},
        {fullState(),
         [](auto& s) { lastSession(s).accumulatedPausedSeconds -= 30; },
         {"pauses of session 2 shortened by 30 s"}},
        {fullState(),
         [](auto& s) { *lastSession(s).pausedAt = moment + 310; },
         {"focus session 2 resumed", "focus session 2 paused"}},
        {stateIn(sessionReview),
         [](auto& s) {
             s.workflowState = focusing;
             lastSession(s).endedAt.reset();
         },
         {"focus session 1 continued"}},
        {stateIn(sessionReview),
         [](auto& s) { lastSession(s).endedAt = moment + 120; },
         {"end of session 1 moved to 15:02"}},
        {stateIn(breaking),
         [](auto& s) { lastSession(s).review->improvement = ""; },
         {"review of session 1 changed: improvement"}},
        {stateIn(breaking), [](auto& s) { lastSession(s).review.reset(); }, {"review of session 1 removed"}},
        {stateIn(focusing),
         [](auto& s) { lastSession(s).plan.energy = 1; },
         {"plan of session 1 changed: energy"}},
        {stateIn(focusing), [](auto& s) { lastSession(s).startedAt = moment - 1; }, {"session 1 changed"}},
        {stateIn(focusing), [](auto& s) { s.currentBlock->sessions.clear(); }, {"session 1 removed"}},
    };
}

std::vector<HandEdit> otherHandEdits()
{
    using enum WorkflowState;
    return {
        {edited(stateIn(breaking), [](auto& s) { workflow.endBreak(s, moment); }),
         [](auto& s) {
             s.workflowState = breaking;
             s.breakStartedAt = moment;
         },
         {"break begun at 15:00"}},
        {stateIn(breaking),
         [](auto& s) { s = withAnotherBlock(); },
         {"block dropped: Chapter one", "block begun"}},
        {edited(stateIn(breaking), [](auto& s) { workflow.extendBreak(s, 300, moment); }),
         [](auto& s) { s.breakExtensionSeconds = 60; },
         {"break shortened by 4 min"}},
        {stateIn(breaking),
         [](auto& s) { s.plannedNextSession = samplePlan(5); },
         {"plan of the next session changed"}},
        {stateIn(breaking),
         [](auto& s) { s.plannedNextSession.reset(); },
         {"plan of the next session dropped"}},
        {stateIn(idle),
         [](auto& s) { s.plannedNextSession = samplePlan(1); },
         {"plan of the next session saved"}},
        {stateIn(idle), [](auto& s) { s.breakStartedAt = moment; }, {"other details changed"}},
        {stateIn(idle), [](auto& s) { s.id = identifier(77); }, {"other details changed"}},
        {stateIn(idle), [](auto& s) { s.updatedAt = moment + 1; }, {"saved again without a change"}},
        {withQuestion(), [](auto& s) { s.agentQuestions.clear(); }, {"question removed: May I?"}},
        {withQuestion(), [](auto& s) { s.agentQuestions[0].question = "Why?"; }, {"question changed: Why?"}},
        {fullState(),
         [](auto& s) { s.agentQuestions[0].answer = "None"; },
         {"answer changed: Which \"build\" fails?"}},
        {fullState(),
         [](auto& s) { s.agentQuestions[0].answeredAt.reset(); },
         {"answer removed: Which \"build\" fails?"}},
        {fullState(),
         [](auto& s) { std::swap(s.agentQuestions[0], s.agentQuestions[1]); },
         {"other details changed"}},
    };
}

std::vector<HandEdit> handEdits()
{
    std::vector<HandEdit> all = handEditsOfBlocks();
    for (const std::vector<HandEdit>& more : {handEditsOfSessions(), otherHandEdits()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

TEST(Describe, hasASentenceForWhatTheEngineDoesNotDo)
{
    const TimeZone utc("UTC");
    for (const HandEdit& example : handEdits()) {
        EXPECT_EQ(work::describe(example.before, edited(example.before, example.edit)), example.sentences);
    }
}

TEST(Describe, hasASentenceForAnyTwoStatesThatDiffer)
{
    std::vector<QuillmereState> states = {fullState()};
    for (const OperationExample& example : examples()) {
        states.push_back(example.before);
        states.push_back(edited(example.before, example.operation));
    }
    for (const QuillmereState& before : states) {
        for (const QuillmereState& after : states) {
            EXPECT_EQ(work::describe(before, after).empty(), before == after);
        }
    }
}

TEST(Describe, namesTheFirstChangesInOneSentenceAndCountsTheOthers)
{
    const TimeZone utc("UTC");
    const QuillmereState before = stateIn(WorkflowState::idle);
    QuillmereState after = before;
    const auto sentence = [&] { return work::describeInASentence(before, after, moment); };
    workflow.addQuestion(after, "First", moment);
    EXPECT_EQ(sentence(), "question was asked at 15:00: First.");
    workflow.addQuestion(after, "Second?", moment);
    EXPECT_EQ(sentence(), "question was asked at 15:00: First; question was asked at 15:00: Second?");
    workflow.addQuestion(after, "Third", moment);
    workflow.addQuestion(after, "Fourth", moment);
    workflow.addQuestion(after, "Fifth", moment);
    EXPECT_EQ(sentence().substr(sentence().rfind(';')), "; and 3 more.");
}

TEST(WayBack, saysWhatWouldGoAndWhatWouldComeBack)
{
    const TimeZone utc("UTC");
    const QuillmereState earlier = stateWithScheduledBlock();
    QuillmereState present = earlier;
    workflow.cancelScheduledBlock(present, moment);
    workflow.addQuestion(present, "May I?", moment);
    const work::WayBack way = work::describeWayBack(earlier, present, moment + 86'400);
    EXPECT_EQ(way.wouldGo, Sentences{"question was asked at 2026-11-15 15:00: May I?"});
    EXPECT_EQ(way.wouldComeBack, Sentences{"block scheduled for 2026-11-15 16:00: Chapter one"});
}

TEST(WayBack, namesATextThatWasReplacedOnBothSides)
{
    const QuillmereState earlier = fullState();
    QuillmereState present = earlier;
    workflow.answerQuestion(present, present.agentQuestions[0].id, "None", moment);
    const work::WayBack way = work::describeWayBack(earlier, present, moment);
    EXPECT_EQ(way.wouldGo, Sentences{"answer changed: Which \"build\" fails?"});
    EXPECT_EQ(way.wouldComeBack, way.wouldGo);
}

TEST(WayBack, isSaidForEveryChange)
{
    std::vector<std::pair<QuillmereState, QuillmereState>> pairs;
    for (const OperationExample& example : examples()) {
        pairs.emplace_back(example.before, edited(example.before, example.operation));
    }
    for (const HandEdit& example : handEdits()) {
        pairs.emplace_back(example.before, edited(example.before, example.edit));
    }
    for (const auto& [earlier, present] : pairs) {
        QuillmereState savedLater = earlier;
        savedLater.updatedAt = present.updatedAt;
        const work::WayBack way = work::describeWayBack(earlier, present, moment);
        EXPECT_EQ(way.wouldGo.empty() && way.wouldComeBack.empty(), savedLater == present);
    }
}

}  // namespace
}  // namespace quillmere::test
