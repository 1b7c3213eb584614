#include "work/undo/undone_state.hpp"

#include "work/changes/parts.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillmere::work {
namespace {

using enum ChangeKind;
using Questions = std::vector<AgentQuestion>;

bool isOfTheClock(const Change& change)
{
    return change.kind == scheduledBlockStarted || change.kind == focusEnded || change.kind == breakOver;
}

bool isOfQuestions(const Change& change)
{
    return change.kind == questionAsked || change.kind == questionAnswered || change.kind == answerChanged ||
           change.kind == answerRemoved || change.kind == questionChanged || change.kind == questionRemoved;
}

bool isOfWork(const Change& change)
{
    return !isOfTheClock(change) && !isOfQuestions(change) && change.kind != savedAgain;
}

/// Puts a question back in its place: they stand in the order in which they were asked.
void putBack(Questions& questions, const AgentQuestion& question)
{
    const auto place = std::find_if(questions.begin(), questions.end(), [&](const AgentQuestion& other) {
        return other.createdAt > question.createdAt;
    });
    questions.insert(place, question);
}

/// Whether anything but new questions makes the difference.
bool changesKnownOnes(const Questions& before, const ById<AgentQuestion>& after)
{
    return std::any_of(before.begin(), before.end(), [&](const AgentQuestion& question) {
        const auto found = after.find(question.id);
        return found == after.end() || *found->second != question;
    });
}

/// The questions of the present without a change of questions.
Questions setBack(const Questions& before, const Questions& after, Questions questions)
{
    const ById<AgentQuestion> earlier = byId(before);
    const ById<AgentQuestion> later = byId(after);
    const ById<AgentQuestion> known = byId(questions);
    Questions missing;
    std::copy_if(before.begin(), before.end(), std::back_inserter(missing),
                 [&](const AgentQuestion& question) { return !known.contains(question.id); });
    // An agent may have asked one meanwhile, which leaves no version: it is not the change undone.
    if (!changesKnownOnes(before, later)) {
        std::erase_if(questions, [&](const AgentQuestion& question) {
            return later.contains(question.id) && !earlier.contains(question.id);
        });
    }
    for (AgentQuestion& question : questions) {
        const auto was = earlier.find(question.id);
        const auto became = later.find(question.id);
        if (was != earlier.end() && became != later.end() && *was->second != *became->second) {
            question = *was->second;
        }
    }
    for (const AgentQuestion& question : missing) {
        putBack(questions, question);
    }
    return questions;
}

}  // namespace

ChangeOrigin originOf(const Changes& changes)
{
    if (std::any_of(changes.begin(), changes.end(), isOfWork)) {
        return ChangeOrigin::work;
    }
    const bool isOfClock = std::any_of(changes.begin(), changes.end(), isOfTheClock) ||
                           std::none_of(changes.begin(), changes.end(), isOfQuestions);
    return isOfClock ? ChangeOrigin::clock : ChangeOrigin::questions;
}

QuillmereState withoutChange(const TakenChange& change, const QuillmereState& present)
{
    const bool isWork = change.origin != ChangeOrigin::questions;
    QuillmereState state = isWork ? change.before : present;
    state.agentQuestions =
        isWork ? present.agentQuestions
               : setBack(change.before.agentQuestions, change.after.agentQuestions, present.agentQuestions);
    return state;
}

void countAsPause(QuillmereState& state, Instant from, Instant now)
{
    if (state.workflowState != WorkflowState::focusing || !state.currentSession() ||
        state.currentSession()->pausedAt) {
        return;
    }
    WorkSession& session = state.currentBlock->sessions.back();
    const double room = now - session.startedAt - session.accumulatedPausedSeconds;
    const double length = std::min(now - from, room);
    session.accumulatedPausedSeconds += length > 0 ? length : 0;
}

}  // namespace quillmere::work
