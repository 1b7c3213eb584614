#include "merge/session.hpp"

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using merge::compareProgress;
using merge::endAbandoned;

WorkSession running() { return blockInWork(1, 1).sessions.back(); }

WorkSession paused(double secondsAfter)
{
    WorkSession session = running();
    session.pausedAt = moment + secondsAfter;
    return session;
}

WorkSession resumed(double pausedSeconds)
{
    WorkSession session = running();
    session.accumulatedPausedSeconds = pausedSeconds;
    return session;
}

WorkSession ended(double secondsAfter)
{
    WorkSession session = running();
    session.endedAt = moment + secondsAfter;
    return session;
}

WorkSession reviewed(unsigned review)
{
    WorkSession session = ended(60);
    session.review = sampleReview(review);
    return session;
}

TEST(CopiesOfASession, areOrderedByHowFarTheyHaveCome)
{
    const std::vector<WorkSession> inOrder = {running(), paused(30), paused(40),  resumed(10), resumed(20),
                                              ended(30), ended(40),  reviewed(1), reviewed(2)};
    for (std::size_t one = 0; one < inOrder.size(); ++one) {
        for (std::size_t other = 0; other < inOrder.size(); ++other) {
            EXPECT_EQ(compareProgress(inOrder[one], inOrder[other]), one <=> other) << one << " " << other;
        }
    }
}

TEST(CopiesOfASession, areTheSameWhateverTheirNumber)
{
    WorkSession session = running();
    session.number = 7;
    EXPECT_EQ(compareProgress(session, running()), std::strong_ordering::equal);
    EXPECT_TRUE(merge::isSame(session, running()));
}

void expectEnd(WorkSession session, double savedAfter, double endAfter)
{
    endAbandoned(session, moment + savedAfter);
    EXPECT_EQ(session.endedAt, moment + endAfter);
    EXPECT_EQ(session.pausedAt, std::nullopt);
}

TEST(AnAbandonedSession, endsAtItsPauseItsPlannedEndOrWhenItWasSavedWhicheverIsEarliest)
{
    expectEnd(running(), 100, 100);
    expectEnd(running(), 5'000, 1'500);
    expectEnd(resumed(200), 5'000, 1'700);
    expectEnd(paused(40), 100, 40);
}

}  // namespace
}  // namespace quillmere::test
