// The one place where the workflow moves.
#pragma once

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <string>

namespace quillmere {

/// Operations on a state at an instant. The engine holds nothing and reads no clock; `now` is the
/// only time there is.
///
/// Common to all: every check comes first, in the order given, and a refusal throws one
/// WorkflowError; whatever is thrown, `std::bad_alloc` included, the state stays as it was. A success
/// ends by setting `updatedAt` to `now`. "In a state" means in exactly that one; in any other the
/// operation throws `invalidTransition`.
///
/// The current session is the last of the current block; no operation looks at an earlier one.
struct WorkflowEngine {
    // A block ------------------------------------------------------------------------------------------

    /// In `idle`, with no block in hand (`invalidTransition`): opens the planning of a block.
    void beginBlockPlanning(QuillmereState& state, Instant now) const;

    /// In `blockPlanning`: makes `block` the current one, exactly as given, and opens the planning of
    /// its first session; a session plan left from earlier is dropped. Throws `invalidDuration` unless
    /// both durations and the cycle count are above zero.
    void startBlock(QuillmereState& state, Block block, Instant now) const;

    /// In `blockReview`, with a block in hand (`invalidTransition`): closes the block with its
    /// reflection, puts it at the front of the history, clears the break and returns to `idle`.
    void completeBlockReview(QuillmereState& state, BlockReview review, Instant now) const;

    // A scheduled block: one that waits in `idle` with a planned start ----------------------------------

    /// In `blockPlanning`: lets `block` wait for its planned start. Throws `invalidTransition` without
    /// one, then `invalidDuration` as `startBlock` does. A start in the past is accepted: the next
    /// evaluation begins such a block.
    void scheduleBlock(QuillmereState& state, Block block, Instant now) const;

    /// With a scheduled block (`invalidTransition`): back to planning, with the block in hand as the
    /// starting point.
    void editScheduledBlock(QuillmereState& state, Instant now) const;

    /// With a scheduled block (`invalidTransition`): discards it, and any plan of a next session.
    void cancelScheduledBlock(QuillmereState& state, Instant now) const;

    /// With a scheduled block (`invalidTransition`): begins it without waiting. Its planned start is
    /// removed and any plan of a next session dropped.
    void startScheduledBlockNow(QuillmereState& state, Instant now) const;

    /// Begins the scheduled block when its planned start has come, unless it was begun before, and
    /// says whether it did. Keeps the planned start and the plan of a next session. Otherwise changes
    /// nothing; throws nothing. An instant that is not a number is never the time.
    bool evaluateSchedule(QuillmereState& state, Instant now) const;

    // A focus session ----------------------------------------------------------------------------------

    /// In `sessionPlanning`, with a block that has cycles left (`invalidTransition`): starts a session
    /// by `plan`, or by the plan saved at the last review when none is given. Throws
    /// `missingSessionPlan` when there is neither, and `ratingOutOfRange` unless energy and morale are
    /// 1 through 5. The saved plan is used up either way.
    void startFocus(QuillmereState& state, std::optional<SessionPlan> plan, Instant now) const;

    /// In `focusing`, with a session that is not paused (`invalidTransition`): stops its clock.
    void pauseFocus(QuillmereState& state, Instant now) const;

    /// In `focusing`, with a session that is paused (`invalidTransition`): lets its clock run again. A
    /// pause that ends before it began counts as none.
    void resumeFocus(QuillmereState& state, Instant now) const;

    /// In `focusing`, with a session (`invalidTransition`): ends it, a running pause first, and opens
    /// its review.
    void endFocus(QuillmereState& state, Instant now) const;

    /// In `sessionReview`, with a session (`invalidTransition`): keeps the review. While cycles remain
    /// it starts the break and needs the plan of the next session (`nextSessionPlanRequired`); after
    /// the last cycle it opens the block's review and drops such a plan. A plan that is given must
    /// have ratings of 1 through 5 in both cases (`ratingOutOfRange`).
    void saveReviewAndStartBreak(QuillmereState& state, SessionReview review,
                                 std::optional<SessionPlan> nextPlan, Instant now) const;

    // A break ------------------------------------------------------------------------------------------

    /// In `breaking`: lengthens the break `by` seconds, on top of earlier extensions; its end will be
    /// announced again. Throws `invalidTransition` unless `by` is above zero.
    void extendBreak(QuillmereState& state, double by, Instant now) const;

    /// In `breaking`: ends the break, early or late, and opens the planning of the next session, whose
    /// saved plan is kept.
    void endBreak(QuillmereState& state, Instant now) const;

    /// The same under the name of the action that a person sees.
    void skipBreak(QuillmereState& state, Instant now) const;

    // The timer ----------------------------------------------------------------------------------------

    /// Ends the focus session whose time is used up (`focusEnded`), or announces the end of the break
    /// once, and once more after each extension (`breakEnded`); the break itself goes on. Otherwise
    /// changes nothing. Calls for the `TimerSnapshot` at `now`, with its fatal errors.
    TimerTransition evaluateTimer(QuillmereState& state, Instant now) const;

    // Questions of an agent ----------------------------------------------------------------------------

    /// In any state: adds an open question at the end, its text exactly as given.
    void addQuestion(QuillmereState& state, std::string question, Instant now) const;

    /// In any state: answers a question, again if it was answered before; the text is kept exactly as
    /// given, an empty one too. Throws `invalidTransition` when no question has this `id`.
    void answerQuestion(QuillmereState& state, const Identifier& id, std::string answer, Instant now) const;
};

}  // namespace quillmere
