// The options of the watch; what it does stands in tests/app/notices.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(WatchCommand, listsTheEventsThatHooksRunAt)
{
    Person person;
    const Ending ending = person.types({"watch", "--list-events"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out,
              "block_started    A block began by its schedule; the plan of its first session waits.\n"
              "focus_ended      The time of a focus session ran out; its review waits.\n"
              "break_ended      The time of a break ran out; the next session waits.\n"
              "question_raised  An agent or a person asked a question, and the person may be interrupted.\n");
}

TEST(WatchCommand, listsTheEventsForProgramsToo)
{
    Person person;
    const std::string json = person.types({"watch", "--list-events", "--json"}).out;
    EXPECT_EQ(jsonAt("/1/event", json), "\"focus_ended\"");
    EXPECT_EQ(jsonAt("/1/meaning", json), "\"The time of a focus session ran out; its review waits.\"");
}

}  // namespace
}  // namespace quillmere::test
