// What could not be told at once is told as things are then.
#include "notices/outbox.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using app::Outbox;
using app::StandingEvent;
using Kind = StandingEvent::Kind;
using Events = std::vector<StandingEvent>;

StandingEvent event(Kind kind, const std::string& key)
{
    return {.kind = kind, .key = key, .at = moment, .text = key};
}

const StandingEvent focus = event(Kind::focusEnded, "focus");
const StandingEvent rest = event(Kind::breakEnded, "break");
const StandingEvent first = event(Kind::questionRaised, "first");
const StandingEvent second = event(Kind::questionRaised, "second");
const QuillmereState idle = stateIn(WorkflowState::idle);
const QuillmereState focusing = stateIn(WorkflowState::focusing);

TEST(Outbox, letsTheWorkGoFirstAndThenAllQuestionsTogether)
{
    Outbox outbox;
    outbox.add({first, focus, second});
    EXPECT_EQ(outbox.takeNext(idle), (Events{focus}));
    EXPECT_TRUE(outbox.hasNext(idle));
    EXPECT_EQ(outbox.takeNext(idle), (Events{first, second}));
    EXPECT_FALSE(outbox.hasNext(idle));
    EXPECT_EQ(outbox.takeNext(idle), Events{});
}

TEST(Outbox, keepsQuestionsWhileThePersonMustNotBeInterrupted)
{
    Outbox outbox;
    outbox.add({first});
    EXPECT_FALSE(outbox.hasNext(focusing));
    EXPECT_EQ(outbox.takeNext(focusing), Events{});
    EXPECT_EQ(outbox.events(), (Events{first}));
    EXPECT_EQ(outbox.takeNext(idle), (Events{first}));
}

TEST(Outbox, dropsWhatDoesNotStandAnyMore)
{
    Outbox outbox;
    outbox.add({focus, first, second});
    StandingEvent reworded = second;
    reworded.text = "in other words";
    outbox.keepOnly({rest, reworded});
    EXPECT_EQ(outbox.events(), (Events{second}));
}

}  // namespace
}  // namespace quillmere::test
