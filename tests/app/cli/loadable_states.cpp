#include "loadable_states.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <utility>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

enum class Start { none, ahead, passed, begunBefore };
enum class Sessions { none, running, paused, overdue, ended, reviewed };

std::string nameOf(Start start)
{
    switch (start) {
        case Start::none: return "no start";
        case Start::ahead: return "start ahead";
        case Start::passed: return "start passed";
        case Start::begunBefore: return "begun before";
    }
    return {};
}

std::string nameOf(Sessions sessions)
{
    switch (sessions) {
        case Sessions::none: return "no session";
        case Sessions::running: return "running";
        case Sessions::paused: return "paused";
        case Sessions::overdue: return "overdue";
        case Sessions::ended: return "ended";
        case Sessions::reviewed: return "reviewed";
    }
    return {};
}

/// Where a block is planned, its start matters; elsewhere, how far its session is.
std::vector<std::pair<Start, Sessions>> kindsOfBlock(WorkflowState workflowState)
{
    std::vector<std::pair<Start, Sessions>> kinds;
    if (workflowState == WorkflowState::idle || workflowState == WorkflowState::blockPlanning) {
        for (const Start start : {Start::none, Start::ahead, Start::passed, Start::begunBefore}) {
            kinds.emplace_back(start, Sessions::none);
            kinds.emplace_back(start, Sessions::reviewed);
        }
        return kinds;
    }
    for (const Sessions sessions : {Sessions::none, Sessions::running, Sessions::paused, Sessions::overdue,
                                    Sessions::ended, Sessions::reviewed}) {
        kinds.emplace_back(Start::begunBefore, sessions);
    }
    return kinds;
}

/// Gives texts of their own to records, and lists them.
class TextFiller {
public:
    std::vector<std::string> given;

    template <class... Texts>
    void fill(Texts&... texts)
    {
        ((texts = "(word " + std::to_string(++count_) + ")", given.push_back(texts)), ...);
    }
    void fill(SessionPlan& plan)
    {
        fill(plan.intendedOutcome, plan.firstAction, plan.hazardsMitigation, plan.nicuFraming);
    }
    void fill(SessionReview& review)
    {
        fill(review.noteworthyResult, review.distractions, review.improvement);
    }
    void fill(BlockReview& review)
    {
        fill(review.outputProduced, review.normalComparison, review.boggedDown, review.wentWell,
             review.lessons);
    }
    void fill(Block& block)
    {
        fill(block.whyValue, block.doneTest, block.hazards, block.measurableCheck, block.contextNotes);
        for (Outcome& outcome : block.outcomes) {
            fill(outcome.title);
        }
    }

    std::vector<std::string> taken() { return std::exchange(given, {}); }

private:
    int count_ = 0;
};

WorkSession sessionOf(Sessions kind)
{
    WorkSession session = blockInWork(1, 1).sessions.front();
    session.startedAt = moment - (kind == Sessions::overdue ? 5'000 : 600);
    if (kind == Sessions::paused) {
        session.pausedAt = moment - 60;
    }
    if (kind == Sessions::ended || kind == Sessions::reviewed) {
        session.endedAt = moment - 60;
    }
    if (kind == Sessions::reviewed) {
        session.review = sampleReview(1);
    }
    return session;
}

Block blockOf(Start start, Sessions sessions)
{
    Block block = sampleBlock(1);
    if (start != Start::none) {
        block.plannedStart = moment + (start == Start::ahead ? 3'600 : -3'600);
    }
    if (start == Start::begunBefore) {
        block.scheduledStartTriggeredAt = moment - 3'600;
    }
    if (sessions != Sessions::none) {
        block.sessions.push_back(sessionOf(sessions));
    }
    if (sessions == Sessions::reviewed) {
        block.reflection = sampleReflection();
    }
    return block;
}

QuillmereState stateWithoutBlock(WorkflowState workflowState)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.workflowState = workflowState;
    state.plannedNextSession = samplePlan(9);
    state.breakStartedAt = moment - 60;
    state.agentQuestions = fullState().agentQuestions;
    state.blockHistory = fullState().blockHistory;
    return state;
}

/// Whether the review of the session is still to come: the way out then writes over an existing review.
bool isBeforeReview(WorkflowState workflowState)
{
    return workflowState == WorkflowState::focusing || workflowState == WorkflowState::sessionReview;
}

LoadableState filled(std::string name, QuillmereState state)
{
    LoadableState loadable{.name = std::move(name),
                           .state = std::move(state),
                           .blockWords = {},
                           .sessionWords = {},
                           .earlyWords = {}};
    std::optional<Block>& block = loadable.state.currentBlock;
    WorkSession* const session = block && !block->sessions.empty() ? &block->sessions.back() : nullptr;
    const bool isEarly = isBeforeReview(loadable.state.workflowState);
    TextFiller words;
    if (block) {
        words.fill(*block);
        loadable.blockWords = words.taken();
    }
    if (session) {
        words.fill(session->plan);
    }
    if (session && session->review && !isEarly) {
        words.fill(*session->review);
    }
    loadable.sessionWords = words.taken();
    words.fill(*loadable.state.plannedNextSession);
    if (session && session->review && isEarly) {
        words.fill(*session->review);
    }
    if (block && block->reflection) {
        words.fill(*block->reflection);
    }
    loadable.earlyWords = words.taken();
    return loadable;
}

std::string situationOfPlan(const std::string& name, const Block& block)
{
    const bool hasSessions = !block.sessions.empty();
    if (!block.plannedStart) {
        return name +
               (hasSessions ? ", a block with sessions but without a start" : ", a block without a start");
    }
    if (name == "`idle`") {
        return name + (hasSessions ? ", a block with sessions waits for its start"
                                   : ", a block waits for its start");
    }
    const std::string edited = hasSessions ? " block with sessions" : " block";
    return *block.plannedStart > moment ? name + ", a scheduled" + edited + " is edited"
                                        : name + ", the start of the edited" + edited + " has passed";
}

}  // namespace

std::vector<LoadableState> loadableStates()
{
    std::vector<LoadableState> states;
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        QuillmereState state = stateWithoutBlock(workflowState);
        states.push_back(filled("no block", state));
        for (const auto& [start, sessions] : kindsOfBlock(workflowState)) {
            state.currentBlock = blockOf(start, sessions);
            states.push_back(filled(nameOf(start) + ", " + nameOf(sessions), state));
        }
    }
    return states;
}

std::string situationOf(const QuillmereState& state)
{
    const std::string name = "`" + std::string(rawValue(state.workflowState)) + "`";
    const bool hasSession = state.currentSession() != nullptr;
    const bool isPlan =
        state.workflowState == WorkflowState::idle || state.workflowState == WorkflowState::blockPlanning;
    if (isPlan) {
        return state.currentBlock ? situationOfPlan(name, *state.currentBlock) : name;
    }
    if (!state.currentBlock) {
        return name + " without a block";
    }
    if (state.workflowState == WorkflowState::sessionPlanning) {
        return name + (hasSession ? ", after a session" : ", before the first session");
    }
    if (state.workflowState == WorkflowState::complete) {
        return name + (hasSession ? ", a block with sessions" : ", a block without a session");
    }
    if (!hasSession) {
        return name + " without a session";
    }
    const bool isPaused = state.workflowState == WorkflowState::focusing && state.currentSession()->pausedAt;
    return name + (isPaused ? ", paused" : "");
}

}  // namespace quillmere::test
