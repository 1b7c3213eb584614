#include "work/event_text.hpp"

#include <string>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using work::EventKind;

TEST(EventText, hasANameForProgramsAHeadingAndASentence)
{
    struct Example {
        EventKind kind;
        std::string name;
        std::string heading;
        std::string sentence;
    };
    const Example examples[] = {
        {EventKind::blockStarted, "block_started", "The scheduled block has begun",
         "The scheduled block started at 15:00."},
        {EventKind::focusEnded, "focus_ended", "Focus is over", "The focus session ended at 15:00."},
        {EventKind::breakEnded, "break_ended", "The break is over", "The break was over at 15:00."},
        {EventKind::questionRaised, "question_raised", "A question waits", "A question was asked at 15:00."},
    };
    const TimeZone utc("UTC");
    for (const Example& example : examples) {
        EXPECT_EQ(work::eventName(example.kind), example.name);
        EXPECT_EQ(work::eventHeading(example.kind), example.heading);
        EXPECT_EQ(work::eventText(example.kind, moment, moment + 60), example.sentence);
    }
}

TEST(EventText, hasAHeadingForWhatWaits)
{
    EXPECT_EQ(work::waitingHeading(EventKind::blockStarted), "Plan waiting");
    EXPECT_EQ(work::waitingHeading(EventKind::focusEnded), "Review waiting");
    EXPECT_EQ(work::waitingHeading(EventKind::breakEnded), "Break over");
}

TEST(EventText, countsQuestionsThatWait)
{
    EXPECT_EQ(work::waitingQuestionsText(1), "A question waits");
    EXPECT_EQ(work::waitingQuestionsText(2), "2 questions wait");
}

TEST(EventText, isTheSameForAnEventThatWasRecorded)
{
    using Recorded = workspace::Event;
    EXPECT_EQ(work::kindOf({Recorded::Kind::blockStarted, moment}), EventKind::blockStarted);
    EXPECT_EQ(work::kindOf({Recorded::Kind::focusEnded, moment}), EventKind::focusEnded);
    EXPECT_EQ(work::kindOf({Recorded::Kind::breakEnded, moment}), EventKind::breakEnded);
    EXPECT_EQ(work::eventText({Recorded::Kind::breakEnded, moment}, moment + 60),
              work::eventText(EventKind::breakEnded, moment, moment + 60));
}

}  // namespace
}  // namespace quillmere::test
