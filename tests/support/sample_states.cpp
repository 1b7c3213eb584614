#include "support/sample_states.hpp"

#include <string>

namespace quillmere::test {

Identifier identifier(unsigned number)
{
    Identifier::Octets bytes{0x9F, 0x1C, 0x2A, 0x4E, 0x0B, 0x7D, 0x4C, 0x55, 0x8E, 0x21};
    for (std::size_t index = 15; index >= 12; --index) {
        bytes[index] = static_cast<std::uint8_t>(number);
        number >>= 8;
    }
    return Identifier(bytes);
}

namespace {

/// Gives each kind of record its own range of 100 identifiers.
Identifier numbered(unsigned kind, unsigned number) { return identifier(kind * 100 + number); }

std::string text(const char* what, unsigned number) { return what + (" " + std::to_string(number)); }

}  // namespace

SessionPlan samplePlan(unsigned number)
{
    return {
        .id = numbered(1, number),
        .blockOutcomeID = numbered(5, 1),
        .intendedOutcome = text("Outcome of session", number),
        .firstAction = text("First action", number),
        .hazardsMitigation = "Phone in the drawer",
        .nicuFraming = "",
        .energy = 4,
        .morale = 3,
    };
}

SessionReview sampleReview(unsigned number)
{
    return {
        .id = numbered(2, number),
        .completion = CompletionResult::half,
        .noteworthyResult = text("Result", number),
        .distractions = "Mail",
        .improvement = "Start with the hard part",
    };
}

BlockReview sampleReflection()
{
    return {
        .outputProduced = "Two chapters",
        .normalComparison = "More than usual",
        .boggedDown = "The second figure",
        .wentWell = "The outline",
        .lessons = "Close the door",
    };
}

Block sampleBlock(unsigned number)
{
    return {
        .id = numbered(3, number),
        .createdAt = moment - 7200,
        .plannedStart = std::nullopt,
        .focusDurationSeconds = 1500,
        .breakDurationSeconds = 300,
        .cycleCount = 3,
        .outcomes = {{.id = numbered(5, 1), .title = "Chapter one"},
                     {.id = numbered(5, 2), .title = "Chapter two"}},
        .whyValue = "The deadline is near",
        .doneTest = "Both chapters read aloud",
        .hazards = "Rewriting the outline",
        .measurableCheck = "2000 words",
        .contextNotes = "Notes are in the blue folder",
        .sessions = {},
        .reflection = std::nullopt,
        .completedAt = std::nullopt,
        .scheduledStartTriggeredAt = std::nullopt,
    };
}

Block blockInWork(unsigned number, std::int64_t sessionCount)
{
    Block block = sampleBlock(number);
    for (std::int64_t session = 1; session <= sessionCount; ++session) {
        const double cyclesAgo = static_cast<double>(sessionCount - session);
        const Instant startedAt = moment - cyclesAgo * 1800;
        const bool isLast = session == sessionCount;
        const auto id = static_cast<unsigned>(session);
        block.sessions.push_back({
            .id = numbered(4, id),
            .number = session,
            .plan = samplePlan(id),
            .startedAt = startedAt,
            .plannedDurationSeconds = 1500,
            .pausedAt = std::nullopt,
            .accumulatedPausedSeconds = 0,
            .endedAt = isLast ? std::nullopt : std::optional(startedAt + 1500),
            .review = isLast ? std::nullopt : std::optional(sampleReview(id)),
        });
    }
    return block;
}

std::vector<Block> finishedDaily(unsigned count, Instant last)
{
    constexpr double day = 86'400;
    std::vector<Block> blocks;
    for (unsigned number = 0; number < count; ++number) {
        blocks.push_back(blockInWork(60 + number, 1));  // no identifier of the usual samples
        blocks.back().completedAt = last - day * number;
    }
    return blocks;
}

void addEarlierYears(QuillmereState& state)
{
    const Instant then = moment - 1e7;
    const std::vector<Block> blocks = finishedDaily(40, then);
    state.blockHistory.insert(state.blockHistory.end(), blocks.begin(), blocks.end());
    state.agentQuestions.insert(state.agentQuestions.begin(), {.id = identifier(899),
                                                               .question = "Which way?",
                                                               .createdAt = then,
                                                               .answer = "This one",
                                                               .answeredAt = then});
}

QuillmereState stateIn(WorkflowState workflowState)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.id = identifier(1);
    state.workflowState = workflowState;
    switch (workflowState) {
        case WorkflowState::idle:
        case WorkflowState::blockPlanning:
        case WorkflowState::complete: break;
        case WorkflowState::sessionPlanning: state.currentBlock = sampleBlock(1); break;
        case WorkflowState::focusing: state.currentBlock = blockInWork(1, 1); break;
        case WorkflowState::sessionReview:
            state.currentBlock = blockInWork(1, 1);
            state.currentBlock->sessions.back().endedAt = moment;
            break;
        case WorkflowState::breaking:
            state.currentBlock = blockInWork(1, 1);
            state.currentBlock->sessions.back().endedAt = moment;
            state.currentBlock->sessions.back().review = sampleReview(1);
            state.plannedNextSession = samplePlan(2);
            state.breakStartedAt = moment;
            break;
        case WorkflowState::blockReview:
            state.currentBlock = blockInWork(1, 3);
            state.currentBlock->sessions.back().endedAt = moment;
            state.currentBlock->sessions.back().review = sampleReview(3);
            break;
    }
    return state;
}

QuillmereState stateWithScheduledBlock()
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.currentBlock = sampleBlock(1);
    state.currentBlock->plannedStart = moment + 3600;
    return state;
}

QuillmereState fullState()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock = blockInWork(7, 2);
    state.currentBlock->plannedStart = moment - 3600;
    state.currentBlock->scheduledStartTriggeredAt = moment - 3600;
    WorkSession& running = state.currentBlock->sessions.back();
    running.pausedAt = moment + 300;
    running.accumulatedPausedSeconds = 42.5;

    Block finished = blockInWork(6, 3);
    finished.sessions.back().endedAt = moment;
    finished.sessions.back().review = sampleReview(3);
    finished.sessions.back().plan.blockOutcomeID.reset();
    finished.reflection = sampleReflection();
    finished.completedAt = moment - 86'400;
    state.blockHistory.push_back(std::move(finished));

    state.plannedNextSession = samplePlan(3);
    state.breakStartedAt = moment - 600;
    state.breakExtensionSeconds = 60.5;
    state.breakEndNotifiedAt = moment - 200;
    state.agentQuestions = {
        {.id = identifier(601),
         .question = "Which \"build\" fails?",
         .createdAt = moment - 500,
         .answer = "The\nnightly one",
         .answeredAt = moment - 400},
        {.id = identifier(602),
         .question = "May I restart it? https://example.com/a",
         .createdAt = moment - 100,
         .answer = std::nullopt,
         .answeredAt = std::nullopt},
    };
    return state;
}

}  // namespace quillmere::test
