// What could not be told at once is told as things are then.
#include "notices/outbox.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using app::Outbox;
using app::StandingEvent;
using Kind = StandingEvent::Kind;
using Events = std::vector<StandingEvent>;

StandingEvent eventOfKey(Kind kind, const std::string& key)
{
    return {.kind = kind, .key = key, .at = moment, .text = key};
}

const StandingEvent focusHasEnded = eventOfKey(Kind::focusEnded, "focus");
const StandingEvent breakHasEnded = eventOfKey(Kind::breakEnded, "break");
const StandingEvent firstQuestion = eventOfKey(Kind::questionRaised, "first");
const StandingEvent secondQuestion = eventOfKey(Kind::questionRaised, "second");
const QuillmereState idle = stateIn(WorkflowState::idle);
const QuillmereState focusing = stateIn(WorkflowState::focusing);

TEST(Outbox, letsTheWorkGoFirstAndThenAllQuestionsTogether)
{
    Outbox outbox;
    outbox.add({firstQuestion, focusHasEnded, secondQuestion});
    EXPECT_EQ(outbox.takeNext(idle), (Events{focusHasEnded}));
    EXPECT_TRUE(outbox.hasNext(idle));
    EXPECT_EQ(outbox.takeNext(idle), (Events{firstQuestion, secondQuestion}));
    EXPECT_FALSE(outbox.hasNext(idle));
    EXPECT_EQ(outbox.takeNext(idle), Events{});
}

TEST(Outbox, keepsQuestionsWhileThePersonMustNotBeInterrupted)
{
    Outbox outbox;
    outbox.add({firstQuestion});
    EXPECT_FALSE(outbox.hasNext(focusing));
    EXPECT_EQ(outbox.takeNext(focusing), Events{});
    EXPECT_EQ(outbox.events(), (Events{firstQuestion}));
    EXPECT_EQ(outbox.takeNext(idle), (Events{firstQuestion}));
}

TEST(Outbox, dropsWhatDoesNotStandAnyMore)
{
    Outbox outbox;
    outbox.add({focusHasEnded, firstQuestion, secondQuestion});
    StandingEvent reworded = secondQuestion;
    reworded.text = "in other words";
    outbox.keepOnly({breakHasEnded, reworded});
    EXPECT_EQ(outbox.events(), (Events{secondQuestion}));
}

}  // namespace
}  // namespace quillmere::test
