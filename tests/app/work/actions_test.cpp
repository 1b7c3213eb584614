#include "work/actions.hpp"

#include "program_testing.hpp"
#include "work/forms/forms.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <set>

namespace quillmere::test {
namespace {

using namespace work;
using workspace::Situation;

Situation at(const QuillmereState& state, Instant now = moment) { return {state, {}, now}; }

/// Steps that the engine takes by itself.
constexpr Step stepsOfTheEngine[] = {Step::evaluateSchedule, Step::announceBreakEnd};

std::vector<Situation> situations()
{
    std::vector<Situation> all;
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        all.push_back(at(stateIn(workflowState)));
    }
    all.push_back(at(stateWithScheduledBlock()));
    QuillmereState edited = stateWithScheduledBlock();
    edited.workflowState = WorkflowState::blockPlanning;
    all.push_back(at(edited));
    all.push_back(at(edited, moment + 86'400));
    QuillmereState paused = stateIn(WorkflowState::focusing);
    paused.currentBlock->sessions.back().pausedAt = moment;
    all.push_back(at(paused));
    QuillmereState last = stateIn(WorkflowState::blockReview);
    last.workflowState = WorkflowState::sessionReview;
    all.push_back(at(last));
    return all;
}

/// The moves that keys and forms make in a situation.
std::vector<Move> movesIn(const Situation& situation)
{
    std::vector<Move> moves;
    for (const Action* const action : actionsFor(situation)) {
        moves.push_back(action->move);
        if (const auto* const kind = std::get_if<FormKind>(&action->effect)) {
            const Form form = formFor(subjectOf(*kind, situation.state), situation.state, situation.now);
            moves.push_back(moveOf(form, situation.state));
            EXPECT_TRUE(isCurrent(form.subject(), situation.state)) << action->label;
        }
    }
    if (const auto subject = subjectFor(situation.state)) {
        Form form = formFor(*subject, situation.state, situation.now);
        moves.push_back(moveOf(form, situation.state));
        if (const auto after = form.indexOf("after")) {
            form.setValue(*after, std::string("finish"));
            moves.push_back(moveOf(form, situation.state));
        }
    }
    return moves;
}

TEST(Actions, coverEveryMoveOfAPersonTogetherWithTheForms)
{
    std::set<Move> reachable = {Step::addQuestion, Step::answerQuestion, Step::scheduleBlock};
    for (const Situation& situation : situations()) {
        for (const Move& move : movesIn(situation)) {
            reachable.insert(move);
        }
    }
    for (const Transition& row : transition_table::rows) {
        const bool isOfTheEngine = std::find(std::begin(stepsOfTheEngine), std::end(stepsOfTheEngine),
                                             row.value) != std::end(stepsOfTheEngine);
        EXPECT_EQ(reachable.count(row.value), isOfTheEngine ? 0U : 1U) << row.operation;
    }
    // A finished block is deleted where it is read.
    for (int kind = 0; kind <= static_cast<int>(amendments::Kind::reset); ++kind) {
        const auto amendment = static_cast<amendments::Kind>(kind);
        EXPECT_EQ(reachable.count(amendment), amendment == amendments::Kind::deleteBlock ? 0U : 1U) << kind;
    }
}

TEST(Actions, areAccepted)
{
    for (const Situation& situation : situations()) {
        for (const Action* const action : actionsFor(situation)) {
            QuillmereState state = situation.state;
            if (const auto* const operation = std::get_if<Action::Operation>(&action->effect)) {
                EXPECT_NO_THROW((*operation)(state, situation.now)) << action->label;
                EXPECT_FALSE(action->done.empty()) << action->label;
            }
            if (const auto* const step = std::get_if<Step>(&action->move); step && action->done.size() > 0) {
                EXPECT_EQ(state.workflowState, transition(*step).result) << action->label;
            }
        }
    }
}

TEST(Actions, areOnesOfTheirKindInEverySituation)
{
    for (const Situation& situation : situations()) {
        std::set<ActionId> ids;
        for (const Action* const action : actionsFor(situation)) {
            EXPECT_TRUE(ids.insert(action->id).second) << action->label;
        }
    }
}

TEST(Actions, skipABreakBeforeItsTimeAndEndItAfter)
{
    const QuillmereState state = stateIn(WorkflowState::breaking);
    EXPECT_EQ(actionFor(ActionId::endBreak, at(state, moment + 299))->label, "skip the break");
    EXPECT_EQ(actionFor(ActionId::endBreak, at(state, moment + 300))->label, "end the break");
    EXPECT_EQ(actionFor(ActionId::endBreak, at(state, moment + 9'000))->label, "end the break");
    EXPECT_EQ(actionFor(ActionId::endFocus, at(state)), nullptr);
}

QuillmereState after(ActionId id, QuillmereState state)
{
    const Action* const action = actionFor(id, at(state));
    std::get<Action::Operation>(action->effect)(state, moment);
    return state;
}

TEST(Actions, lengthenAndShortenByFiveMinutes)
{
    EXPECT_EQ(after(ActionId::lengthen, stateIn(WorkflowState::breaking)).breakExtensionSeconds, 300);
    const QuillmereState focusing = stateIn(WorkflowState::focusing);
    const double planned = focusing.currentSession()->plannedDurationSeconds;
    const auto plannedAfter = [&](ActionId id) {
        return after(id, focusing).currentSession()->plannedDurationSeconds - planned;
    };
    EXPECT_EQ(plannedAfter(ActionId::lengthen), 300);
    EXPECT_EQ(plannedAfter(ActionId::shorten), -300);
    EXPECT_EQ(after(ActionId::lengthen, stateIn(WorkflowState::sessionReview)).workflowState,
              WorkflowState::focusing);
}

TEST(Actions, askBeforeSomethingIsLost)
{
    for (const Situation& situation : situations()) {
        for (const Action* const action : actionsFor(situation)) {
            using enum ActionId;
            const std::set<ActionId> losing = {cancelScheduled, endFocus, drop, finishNow, reset};
            EXPECT_EQ(action->asks == Asks::always, losing.contains(action->id)) << action->label;
            EXPECT_EQ(action->question.empty(), action->asks == Asks::never) << action->label;
        }
    }
}

}  // namespace
}  // namespace quillmere::test
