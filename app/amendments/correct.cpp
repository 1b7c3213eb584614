#include "amendments/correct.hpp"

#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/running_session.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::amendments {
namespace {

template <class Record>
Record* recordIn(std::vector<Record>& records, const Identifier& id)
{
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const Record& record) { return record.id == id; });
    return found == records.end() ? nullptr : &*found;
}

bool isCurrent(const QuillmereState& state, const Identifier& block)
{
    return state.currentBlock && state.currentBlock->id == block;
}

WorkSession& endedSession(Block* block, const Identifier& id)
{
    WorkSession* const session = block ? recordIn(block->sessions, id) : nullptr;
    if (!session) {
        throw Refusal(
            "There is no such session. Possible: a session that has ended, of this block or of the "
            "history.");
    }
    if (!session->endedAt) {
        throw Refusal(
            "This session has not ended, so that its record cannot be corrected. Possible: a session "
            "that has ended.");
    }
    return *session;
}

void requirePlan(const SessionPlan& plan, const Block& block)
{
    const auto isRating = [](std::int64_t rating) { return rating >= 1 && rating <= 5; };
    if (!isRating(plan.energy) || !isRating(plan.morale)) {
        throw Refusal("Energy and morale are ratings. Possible: 1 to 5 for each.");
    }
    if (plan.blockOutcomeID && !block.outcomeServed(plan)) {
        throw Refusal("A session serves an outcome of its own block. Possible: one of those, or none.");
    }
}

void requireEarlierEnd(Instant end, const WorkSession& session)
{
    if (!(end >= earliestEnd(session)) || !(end <= *session.endedAt)) {
        throw Refusal(
            "The end of a session can be corrected to an earlier time, not before its start plus its "
            "pauses. Of finished pauses only the sum is known.",
            timesBetween(earliestEnd(session), *session.endedAt));
    }
}

void setCorrected(WorkSession& session, SessionCorrection correction) noexcept
{
    if (correction.plan) {
        correction.plan->id = session.plan.id;
        session.plan = *std::move(correction.plan);
    }
    if (correction.review) {
        correction.review->id = session.review ? session.review->id : correction.review->id;
        session.review = std::move(correction.review);
    }
    session.endedAt = correction.endedAt ? correction.endedAt : session.endedAt;
}

}  // namespace

void correctSession(QuillmereState& state, const Identifier& block, const Identifier& session,
                    SessionCorrection correction, Instant now)
{
    Block* const owner = isCurrent(state, block) ? &*state.currentBlock : recordIn(state.blockHistory, block);
    WorkSession& ended = endedSession(owner, session);
    if (correction.plan) {
        requirePlan(*correction.plan, *owner);
    }
    const bool waitsForReview =
        isCurrent(state, block) && isPossible(Kind::goOn, state) && state.currentSession()->id == session;
    if (correction.review && waitsForReview) {
        throw Refusal(
            "This session waits for its review, so that there is none to correct. Possible: review, "
            "which saves it.");
    }
    if (correction.endedAt) {
        requireEarlierEnd(*correction.endedAt, ended);
    }
    setCorrected(ended, std::move(correction));
    state.updatedAt = now;
}

void correctBlock(QuillmereState& state, const Identifier& block, BlockCorrection correction, Instant now)
{
    if (isCurrent(state, block)) {
        refuseHere("This block is not finished.");
    }
    Block* const finished = recordIn(state.blockHistory, block);
    if (!finished) {
        throw Refusal("There is no such finished block. Possible: a block of the history.");
    }
    requireOutcomes(correction.texts, *finished, std::nullopt);
    setTexts(*finished, std::move(correction.texts));
    if (correction.reflection) {
        finished->reflection = std::move(correction.reflection);
    }
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
