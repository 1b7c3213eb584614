// The operations that change a state.
#pragma once

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <string>

namespace quillmere {

/// Operations on a state at an instant. The engine has no data and reads no clock: `now` is the only time
/// that it uses.
///
/// Every operation checks first whether its step is possible (`isPossible`) and throws `invalidTransition`
/// when it is not; then it checks its arguments, in the order given below. A refusal is a WorkflowError.
/// After any exception, `std::bad_alloc` included, the state is unchanged. A success ends by setting
/// `updatedAt` to `now`.
///
/// The current session is the last of the current block; no operation looks at an earlier one.
struct WorkflowEngine {
    // A block ------------------------------------------------------------------------------------------

    /// In `idle` with no block: opens the planning of a block.
    void beginBlockPlanning(QuillmereState& state, Instant now) const;

    /// In `blockPlanning`: makes `block` the current one, exactly as given, and opens the planning of
    /// its first session; a session plan left from earlier is dropped. Throws `invalidDuration` unless
    /// both durations and the cycle count are above zero.
    void startBlock(QuillmereState& state, Block block, Instant now) const;

    /// In `blockReview` with a block: closes the block with its reflection, puts it at the front of the
    /// history, clears the break and returns to `idle`.
    void completeBlockReview(QuillmereState& state, BlockReview review, Instant now) const;

    // A scheduled block: it waits in `idle` for its planned start ---------------------------------------

    /// In `blockPlanning`: lets `block` wait for its planned start. Throws `invalidTransition` without
    /// one, then `invalidDuration` as `startBlock` does. A start in the past is accepted: the next
    /// evaluation begins such a block.
    void scheduleBlock(QuillmereState& state, Block block, Instant now) const;

    /// With a scheduled block: goes back to planning, with this block as the starting point.
    void editScheduledBlock(QuillmereState& state, Instant now) const;

    /// With a scheduled block: discards it, and any plan of a next session.
    void cancelScheduledBlock(QuillmereState& state, Instant now) const;

    /// With a scheduled block: begins it without waiting. Removes its planned start and drops any plan of a
    /// next session.
    void startScheduledBlockNow(QuillmereState& state, Instant now) const;

    /// Begins the scheduled block when its planned start has come, unless it was begun before; returns
    /// whether it did. Keeps the planned start and the plan of a next session. Otherwise changes nothing;
    /// throws nothing. At an instant that is not a number no block begins.
    bool evaluateSchedule(QuillmereState& state, Instant now) const;

    // A focus session ----------------------------------------------------------------------------------

    /// In `sessionPlanning` with a block that has cycles left: starts a session with `plan`, or with the
    /// plan saved at the last review when none is given. Throws `missingSessionPlan` when there is neither,
    /// then `ratingOutOfRange` unless energy and morale are 1 through 5. Drops the saved plan either way.
    void startFocus(QuillmereState& state, std::optional<SessionPlan> plan, Instant now) const;

    /// In `focusing` with a session that is not paused: pauses it.
    void pauseFocus(QuillmereState& state, Instant now) const;

    /// In `focusing` with a session that is paused: resumes it. A pause that ends before it began counts as
    /// none.
    void resumeFocus(QuillmereState& state, Instant now) const;

    /// In `focusing` with a session: ends it, a running pause first, and opens its review.
    void endFocus(QuillmereState& state, Instant now) const;

    /// In `sessionReview` with a session: saves the review. While cycles are left it starts the break and
    /// needs the plan of the next session (`nextSessionPlanRequired`); after the last cycle it opens the
    /// block's review and drops such a plan. A plan that is given must have ratings of 1 through 5 in both
    /// cases (`ratingOutOfRange`).
    void saveReviewAndStartBreak(QuillmereState& state, SessionReview review,
                                 std::optional<SessionPlan> nextPlan, Instant now) const;

    // A break ------------------------------------------------------------------------------------------

    /// In `breaking`: lengthens the break `by` seconds, on top of earlier extensions; its end will be
    /// announced again. Throws `invalidTransition` unless `by` is above zero.
    void extendBreak(QuillmereState& state, double by, Instant now) const;

    /// In `breaking`: ends the break, early or late, and opens the planning of the next session, whose
    /// saved plan is kept.
    void endBreak(QuillmereState& state, Instant now) const;

    /// `endBreak` under the name of the action that a person sees.
    void skipBreak(QuillmereState& state, Instant now) const;

    // The timer ----------------------------------------------------------------------------------------

    /// Ends the focus session whose time has run out (`focusEnded`), or announces the end of the break
    /// once, and once more after each extension (`breakEnded`); the break itself goes on. Otherwise
    /// changes nothing. The fatal errors are those of TimerSnapshot::derive.
    TimerTransition evaluateTimer(QuillmereState& state, Instant now) const;

    // Questions of an agent ----------------------------------------------------------------------------

    /// In any state: adds an open question at the end, its text exactly as given.
    void addQuestion(QuillmereState& state, std::string question, Instant now) const;

    /// In any state: answers a question, again if it was answered before; the text is kept exactly as
    /// given, an empty one too. Throws `invalidTransition` when no question has this `id`.
    void answerQuestion(QuillmereState& state, const Identifier& id, std::string answer, Instant now) const;
};

}  // namespace quillmere
