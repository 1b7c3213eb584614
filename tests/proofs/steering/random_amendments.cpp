#include "amendments/back_out.hpp"
#include "amendments/change_block.hpp"
#include "amendments/change_length.hpp"
#include "amendments/correct.hpp"
#include "amendments/delete_block.hpp"
#include "amendments/drop.hpp"
#include "amendments/finish_now.hpp"
#include "amendments/forgot_to_end.hpp"
#include "amendments/go_on.hpp"
#include "amendments/refusal.hpp"
#include "amendments/reset.hpp"
#include "amendments/was_away.hpp"

#include <utility>

#include "proofs/steering/random_steps.hpp"

namespace quillmere::test {
namespace {

using namespace amendments;

PassedStart anyChoice(RandomValues& random, Instant now)
{
    switch (random.below(3)) {
        case 0: return StartNow{};
        case 1: return StartAt{random.time(now)};
        default: return DropBlock{};
    }
}

BlockChange anyChange(RandomValues& random)
{
    BlockChange change;
    switch (random.below(4)) {
        case 0: change.breakDurationSeconds = random.length(); break;
        case 1: change.cycleCount = random.below(6); break;
        case 2: change.texts.outcomes = {{.id = identifier(random.below(3)), .title = "Any"}}; break;
        default: change.focusDurationSeconds = random.length(); break;
    }
    return change;
}

void goOnAnyhow(QuillmereState& state, RandomValues& random, Instant now)
{
    const TimeSinceEnd timeSinceEnd =
        random.oneIn(2) ? TimeSinceEnd::countsAsFocus : TimeSinceEnd::countsAsPause;
    goOn(state, random.length(), timeSinceEnd, now);
}

/// A block of the history, where there is one.
Identifier anyFinishedBlock(const QuillmereState& state)
{
    return state.blockHistory.empty() ? identifier(0) : state.blockHistory.front().id;
}

void correctAny(QuillmereState& state, RandomValues& random, Instant now)
{
    const bool isCurrent = random.oneIn(2) && state.currentSession();
    if (!isCurrent && state.blockHistory.empty()) {
        throw Refusal("There is nothing to correct.");
    }
    const Block& block = isCurrent ? *state.currentBlock : state.blockHistory.front();
    if (!isCurrent && random.oneIn(3)) {
        correctBlock(state, block.id, {.texts = anyChange(random).texts, .reflection = BlockReview{}}, now);
        return;
    }
    const Identifier session = block.sessions.empty() ? identifier(0) : block.sessions.back().id;
    SessionCorrection correction;
    switch (random.below(3)) {
        case 0: correction.review = random.review(); break;
        case 1: correction.plan = random.plan(); break;
        default: correction.endedAt = random.time(now); break;
    }
    correctSession(state, block.id, session, std::move(correction), now);
}

}  // namespace

void amend(Kind kind, QuillmereState& state, RandomValues& random, Instant now)
{
    switch (kind) {
        case Kind::backOut: backOut(state, anyChoice(random, now), now); break;
        case Kind::drop: drop(state, now); break;
        case Kind::finishNow: finishNow(state, now); break;
        case Kind::finishWithReview: finishNow(state, random.review(), now); break;
        case Kind::change: changeBlock(state, anyChange(random), now); break;
        case Kind::changeLength: changeLength(state, random.length(), now); break;
        case Kind::goOn: goOnAnyhow(state, random, now); break;
        case Kind::forgotToEnd: forgotToEnd(state, random.time(now), now); break;
        case Kind::wasAway: wasAway(state, random.time(now), {}, now); break;
        case Kind::correct: correctAny(state, random, now); break;
        case Kind::deleteBlock: deleteBlock(state, anyFinishedBlock(state), now); break;
        case Kind::reset: reset(state, now); break;
    }
}

}  // namespace quillmere::test
