// The differences between two states as values: what happened in between.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::work {

enum class ChangeKind {
    planningBegun,
    planningGivenUp,
    blockScheduled,
    blockOpened,  ///< a scheduled block, for editing
    blockCancelled,
    blockBegun,
    scheduledBlockStarted,  ///< by the clock
    scheduledBlockBegun,    ///< by the person
    blockChanged,
    blockEndedEarly,  ///< brought to its review with sessions left
    blockDropped,
    blockFinished,
    blockTakenUpAgain,
    finishedBlockChanged,
    finishedBlockDeleted,
    sessionStarted,
    planChanged,
    focusPaused,
    focusResumed,
    pauseAdded,
    pausesShortened,
    focusEnded,       ///< because its time was up
    focusEndedEarly,  ///< by the person
    focusWentOn,
    endMoved,
    focusLengthened,
    focusShortened,
    reviewSaved,
    reviewChanged,
    reviewRemoved,
    sessionChanged,
    sessionRemoved,
    breakBegun,
    breakExtended,
    breakShortened,
    breakOver,  ///< its end was announced
    breakEnded,
    breakSkipped,
    nextPlanSaved,
    nextPlanChanged,
    nextPlanDropped,
    questionAsked,
    questionAnswered,
    answerChanged,
    answerRemoved,
    questionChanged,
    questionRemoved,
    workMoved,     ///< to another workflow state, by none of the other kinds
    otherDetails,  ///< by none of the other kinds
    savedAgain,    ///< nothing but `updatedAt`
};

struct Change {
    ChangeKind kind;
    std::string text = {};                     ///< the name of a block, a question, fields; not sanitized
    std::optional<std::int64_t> session = {};  ///< the number of the session
    std::optional<Instant> at = {};            ///< when it happened, or is to happen
    std::optional<double> seconds = {};        ///< the difference of a length

    friend bool operator==(const Change&, const Change&) = default;
};

using Changes = std::vector<Change>;

/// The changes that lead from one state to another, in the order of the work, questions last. Each operation
/// of WorkflowEngine is one change: its consequences, as a break that a review begins, are not named
/// besides. None for equal states; at least one, if only a general one, for states that differ. Both states
/// must be within the limits of workspace::requireUsable.
Changes changesBetween(const QuillmereState& before, const QuillmereState& after);

}  // namespace quillmere::work
