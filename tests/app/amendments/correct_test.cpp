#include "amendments/correct.hpp"

#include <limits>

#include "amendment_testing.hpp"

namespace quillmere::test {
namespace {

using amendments::BlockCorrection;
using amendments::correctBlock;
using amendments::correctSession;
using amendments::Possible;
using amendments::PossibleTimes;
using amendments::SessionCorrection;

/// Block 1 in a break after its first session; block 2 finished, after three sessions.
QuillmereState correctable()
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.blockHistory = {blockInWork(3, 1), blockInWork(2, 3)};
    state.blockHistory[1].reflection = sampleReflection();
    state.blockHistory[1].completedAt = moment;
    return state;
}

/// A session, by its place in the state.
struct Place {
    Block& (*block)(QuillmereState&);
    std::size_t session;
};

const Place places[] = {
    {[](QuillmereState& state) -> Block& { return *state.currentBlock; }, 0},
    {[](QuillmereState& state) -> Block& { return state.blockHistory[1]; }, 1},
};

/// Corrects that session at `soon`.
Amend correcting(const Place& place, const SessionCorrection& correction)
{
    return [=](QuillmereState& state) {
        const Block& block = place.block(state);
        const Identifier id = block.id;
        correctSession(state, id, block.sessions[place.session].id, correction, soon);
    };
}

TEST(CorrectSession, changesItsPlanReviewAndEnd)
{
    for (const Place& place : places) {
        QuillmereState expected = correctable();
        Block& block = place.block(expected);
        WorkSession& session = block.sessions[place.session];
        SessionPlan plan = samplePlan(9);
        plan.blockOutcomeID = block.outcomes[1].id;
        plan.energy = 5;
        SessionReview review = sampleReview(9);
        review.completion = CompletionResult::yes;
        const SessionCorrection correction = {.plan = plan, .review = review, .endedAt = session.startedAt};
        session.plan = plan;
        session.plan.id = samplePlan(static_cast<unsigned>(place.session) + 1).id;
        session.review = review;
        session.review->id = sampleReview(static_cast<unsigned>(place.session) + 1).id;
        session.endedAt = session.startedAt;
        expected.updatedAt = soon;
        EXPECT_EQ(amended(correctable(), soon, correcting(place, correction)), expected);
    }
}

TEST(CorrectSession, leavesWhatIsNotGiven)
{
    QuillmereState expected = correctable();
    expected.updatedAt = soon;
    EXPECT_EQ(amended(correctable(), soon, correcting(places[1], {})), expected);
}

TEST(CorrectSession, mayServeNoOutcome)
{
    SessionPlan plan = samplePlan(2);
    plan.blockOutcomeID.reset();
    const QuillmereState state = amended(correctable(), soon, correcting(places[1], {.plan = plan}));
    EXPECT_FALSE(state.blockHistory[1].sessions[1].plan.blockOutcomeID);
}

TEST(CorrectSession, givesAFinishedSessionTheReviewThatItLacks)
{
    QuillmereState state = correctable();
    state.blockHistory[1].sessions[1].review.reset();
    const SessionReview review = sampleReview(9);
    state = amended(state, soon, correcting(places[1], {.review = review}));
    EXPECT_EQ(state.blockHistory[1].sessions[1].review, review);
}

TEST(CorrectSession, refusesRatingsThatAreNone)
{
    for (const std::int64_t rating : {0, 6}) {
        SessionPlan energy = samplePlan(2);
        energy.energy = rating;
        SessionPlan morale = samplePlan(2);
        morale.morale = rating;
        for (const SessionPlan& plan : {energy, morale}) {
            EXPECT_EQ(refused(correctable(), correcting(places[1], {.plan = plan})),
                      "Energy and morale are ratings. Possible: 1 to 5 for each.");
        }
    }
}

TEST(CorrectSession, refusesTheOutcomeOfAnotherBlock)
{
    SessionPlan plan = samplePlan(2);
    plan.blockOutcomeID = identifier(9);
    EXPECT_EQ(refused(correctable(), correcting(places[1], {.plan = plan})),
              "A session serves an outcome of its own block. Possible: one of those, or none.");
}

TEST(CorrectSession, refusesAnEndThatIsLaterOrBeforeTheStartPlusPauses)
{
    QuillmereState state = correctable();
    WorkSession& session = state.blockHistory[1].sessions[1];
    session.accumulatedPausedSeconds = 60;
    const Instant noNumber(std::numeric_limits<double>::quiet_NaN());
    for (const Instant end : {session.startedAt + 59, *session.endedAt + 1, noNumber}) {
        const amendments::Refusal refused = refusal(state, correcting(places[1], {.endedAt = end}));
        EXPECT_STREQ(
            refused.what(),
            "The end of a session can be corrected to an earlier time, not before its start plus its "
            "pauses. Of finished pauses only the sum is known.");
        EXPECT_EQ(refused.possible(), Possible(PossibleTimes{session.startedAt + 60, *session.endedAt}));
    }
    amended(state, soon, correcting(places[1], {.endedAt = session.startedAt + 60}));
}

TEST(CorrectSession, refusesASessionThatIsNotThere)
{
    const std::string message =
        "There is no such session. Possible: a session that has ended, of this block or of the history.";
    const QuillmereState state = correctable();
    EXPECT_EQ(refused(state, [&](auto& s) { correctSession(s, identifier(9), identifier(8), {}, soon); }),
              message);
    EXPECT_EQ(
        refused(state, [&](auto& s) { correctSession(s, state.currentBlock->id, identifier(8), {}, soon); }),
        message);
}

TEST(CorrectSession, refusesASessionThatHasNotEnded)
{
    EXPECT_EQ(
        refused(stateIn(WorkflowState::focusing), correcting(places[0], {.plan = samplePlan(1)})),
        "This session has not ended, so that its record cannot be corrected. Possible: a session that has "
        "ended.");
}

TEST(CorrectSession, leavesTheFirstReviewOfASessionToTheWork)
{
    const QuillmereState state = stateIn(WorkflowState::sessionReview);
    EXPECT_EQ(refused(state, correcting(places[0], {.review = sampleReview(1)})),
              "This session waits for its review, so that there is none to correct. Possible: review, which "
              "saves it.");
    amended(state, soon, correcting(places[0], {.plan = samplePlan(1)}));
}

TEST(CorrectBlock, changesTheTextsAndTheReflectionOfAFinishedBlock)
{
    QuillmereState expected = correctable();
    Block& block = expected.blockHistory[1];
    block.whyValue = "why";
    block.outcomes.pop_back();
    block.outcomes[0].title = "Renamed";
    block.reflection->lessons = "None";
    expected.updatedAt = soon;
    const BlockCorrection correction = {.texts = {.whyValue = "why", .outcomes = block.outcomes},
                                        .reflection = block.reflection};
    EXPECT_EQ(amended(correctable(), soon, [&](auto& s) { correctBlock(s, block.id, correction, soon); }),
              expected);
}

TEST(CorrectBlock, leavesAReflectionThatIsNotGiven)
{
    const QuillmereState state = amended(correctable(), soon, [](auto& s) {
        correctBlock(s, s.blockHistory[1].id, {.texts = {.whyValue = "why"}}, soon);
    });
    EXPECT_EQ(state.blockHistory[1].reflection, sampleReflection());
}

TEST(CorrectBlock, refusesToRemoveAnOutcomeThatASessionServes)
{
    const BlockCorrection correction = {
        .texts = {.outcomes = std::vector<Outcome>{{.id = identifier(7), .title = "New"}}}};
    EXPECT_EQ(
        refused(correctable(), [&](auto& s) { correctBlock(s, s.blockHistory[1].id, correction, soon); }),
        "Session 1 serves the outcome \"Chapter one\", so that it cannot be removed. Possible: another "
        "title for it.");
}

TEST(CorrectBlock, refusesABlockThatIsNotFinished)
{
    EXPECT_EQ(refused(correctable(), [](auto& s) { correctBlock(s, s.currentBlock->id, {}, soon); }),
              "This block is not finished.");
    EXPECT_EQ(refused(correctable(), [](auto& s) { correctBlock(s, identifier(9), {}, soon); }),
              "There is no such finished block. Possible: a block of the history.");
}

}  // namespace
}  // namespace quillmere::test
