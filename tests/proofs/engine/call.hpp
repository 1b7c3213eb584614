// One call of the engine as a value: the operation, its arguments, the instant and the result.
#pragma once

#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::test {

enum class Operation {
    beginBlockPlanning,
    startBlock,
    scheduleBlock,
    editScheduledBlock,
    cancelScheduledBlock,
    startScheduledBlockNow,
    evaluateSchedule,
    startFocus,
    pauseFocus,
    resumeFocus,
    endFocus,
    saveReviewAndStartBreak,
    extendBreak,
    endBreak,
    skipBreak,
    evaluateTimer,
    completeBlockReview,
    addQuestion,
    answerQuestion,
};

inline constexpr std::size_t operationCount = 19;

constexpr Operation operationAt(std::size_t place) { return static_cast<Operation>(place); }
constexpr std::size_t placeOf(Operation operation) { return static_cast<std::size_t>(operation); }

std::string_view nameOf(Operation operation);

/// The arguments of all operations; each operation reads only its own.
struct Call {
    Operation operation;
    Instant now;
    std::optional<Block> block;             ///< startBlock, scheduleBlock
    std::optional<SessionPlan> plan;        ///< startFocus, saveReviewAndStartBreak
    std::optional<SessionReview> review;    ///< saveReviewAndStartBreak
    std::optional<BlockReview> reflection;  ///< completeBlockReview
    double seconds;                         ///< extendBreak
    std::string text;                       ///< the question, or the answer
    std::optional<Identifier> question;     ///< answerQuestion

    /// A call without arguments.
    static Call of(Operation operation, Instant now);
};

/// The error and its message to the person.
struct Refusal {
    WorkflowError::Case reason;
    std::string message;

    friend bool operator==(const Refusal&, const Refusal&) = default;
};

/// The result of a call, besides the state.
struct Answer {
    std::optional<Refusal> refusal;
    std::optional<bool> begun;                  ///< of evaluateSchedule
    std::optional<TimerTransition> transition;  ///< of evaluateTimer

    /// Whether the call had an effect: not refused, and not reported as nothing to do.
    bool didSomething() const;

    friend bool operator==(const Answer&, const Answer&) = default;
};

/// Makes the call. Checks that both messages of an error, `errorDescription()` and `what()`, are equal.
/// Passes any other exception on.
Answer perform(QuillmereState& state, const Call& call);

}  // namespace quillmere::test
