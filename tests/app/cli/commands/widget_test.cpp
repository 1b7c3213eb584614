// The commands widget, agent and open.
#include "base/text/sanitize.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

/// A person ten minutes into a session, with four open questions.
Person personInFocus()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::focusing);
    for (unsigned number = 1; number <= 4; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = "Question " + std::to_string(number),
                                        .createdAt = moment,
                                        .answer = std::nullopt,
                                        .answeredAt = std::nullopt});
    }
    person.has(state);
    person.now = moment + 600;
    return person;
}

TEST(Widget, showsTheSummaryWithItsTimeline)
{
    const TimeZone here("Europe/Berlin");
    EXPECT_EQ(personInFocus().types({"widget"}).out,
              "Focus  Session 1 of 3\n"
              "15:00  [##########..............]\n"
              "Outcome: Outcome of session 1\n"
              "First action: First action 1\n"
              "Block: 1 of 3 sessions [########................]\n"
              "Asked: Question 1\n"
              "Asked: Question 2\n"
              "Asked: Question 3\n"
              "and 1 more\n"
              "Timeline:  16:10 15:00  16:25 00:00  (asks again at 16:25)\n");
}

TEST(Widget, showsTheDayInItsTimelineWhenItIsAnotherDay)
{
    // The session began at 23:45 and is over at 00:10 of the next day.
    const TimeZone here("Australia/Eucla");
    const std::string out = personInFocus().types({"widget"}).out;
    EXPECT_EQ(out.substr(out.find("Timeline:")),
              "Timeline:  23:55 15:00  2026-11-16 00:10 00:00  (asks again at 2026-11-16 00:10)\n");
}

TEST(Widget, hasNoRefreshDateWhereDatesEnd)
{
    Person person;
    constexpr Instant endOfDates{253'402'300'800};
    person.now = endOfDates - 1801;
    EXPECT_EQ(jsonAt("/refresh_date", person.types({"widget", "--json"}).out), R"("9999-12-31T23:59:59Z")");
    person.now = endOfDates - 1800;
    EXPECT_EQ(jsonAt("/refresh_date", person.types({"widget", "--json"}).out), "null");
}

TEST(Widget, printsTheSameAsJson)
{
    const std::string json = personInFocus().types({"widget", "--json"}).out;
    EXPECT_EQ(keysOf(json), (Words{"snapshot", "title", "caption", "block_progress", "hidden_open_questions",
                                   "link", "timeline", "refresh_date", "time_text", "session_progress"}));
    EXPECT_EQ(jsonAt("/title", json), R"("Focus")");
    EXPECT_EQ(jsonAt("/caption", json), R"("Session 1 of 3")");
    EXPECT_EQ(jsonAt("/hidden_open_questions", json), "1");
    EXPECT_EQ(jsonAt("/link", json), R"("quillmere://open/focus")");
    EXPECT_EQ(jsonAt("/timeline", json), R"([{"date":"2026-11-15T15:10:00Z","text":"15:00"},)"
                                         R"({"date":"2026-11-15T15:25:00Z","text":"00:00"}])");
    EXPECT_EQ(jsonAt("/refresh_date", json), R"("2026-11-15T15:25:01Z")");
    EXPECT_EQ(jsonAt("/time_text", json), R"("15:00")");
    EXPECT_EQ(jsonAt("/session_progress", json), "0.4");
}

TEST(Widget, readsItsOwnFileOnly)
{
    // A widget has no access to the state.
    const Person person = personInFocus();
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_EQ(person.types({"widget"}).code, ExitCode::done);
}

TEST(Widget, countsUpWhileTheTimerIsNotEvaluated)
{
    Person person = personInFocus();
    person.now = moment + 1561;
    EXPECT_EQ(jsonAt("/time_text", person.types({"widget", "--json"}).out), R"("+01:01")");
}

TEST(Widget, isEmptyBeforeAnythingWasSaved)
{
    const TimeZone here("UTC");
    const Person person;
    const Ending ending = person.types({"widget"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out,
              "Idle  No active block\n"
              "Timeline:  15:00 No active block  (asks again at 15:30)\n");
    EXPECT_EQ(person.names(), Words{});
}

TEST(Widget, refusesASummaryOfANewerProgram)
{
    const Person person = personInFocus();
    const auto file = person.directory() / WidgetSnapshotStore::fileName;
    writeText(file, replaced(textOf(file), R"("schema_version":1)", R"("schema_version":2)"));
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types({"widget"});
    EXPECT_EQ(ending.code, ExitCode::unusableData);
    EXPECT_EQ(ending.err, "The widget's summary was written by a newer program.\n");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Widget, refusesASummaryThatCannotBeRead)
{
    const Person person = personInFocus();
    writeText(person.directory() / WidgetSnapshotStore::fileName, "{}");
    const Ending ending = person.types({"widget", "--json"});
    EXPECT_EQ(ending.code, ExitCode::unusableData);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(jsonAt("/error", ending.err),
              R"({"case":"unusableData","message":"The widget's summary cannot be read."})");
}

TEST(Agent, printsTheSummaryAsOfNow)
{
    Person person = personInFocus();
    const Ending ending = person.types({"agent"});
    const AgentSnapshot expected = person.store().agentSnapshot(person.state(), moment + 600);
    EXPECT_EQ(ending.out, std::string(StateStore::encoder().encode(expected).view()) + "\n");
    EXPECT_EQ(jsonAt("/remaining_seconds", ending.out), "900");
    EXPECT_EQ(person.types({"agent", "--json"}).out, ending.out);
}

TEST(Agent, printsASessionThatRanOutSinceTheLastSaveAsEnded)
{
    Person person = personInFocus();
    person.now = moment + 9999;
    const Ending ending = person.types({"agent"});
    EXPECT_EQ(jsonAt("/workflow_state", ending.out), R"("sessionReview")");
    EXPECT_EQ(jsonAt("/interruptible", ending.out), "true");
    EXPECT_EQ(jsonAt("/remaining_seconds", ending.out), "null");
}

struct Link {
    const char* text;
    const char* screen;
};

constexpr Link links[] = {
    {"quillmere://open/idle", "idle"},
    {"quillmere://open/block-planning", "block-planning"},
    {"quillmere://open/session-planning", "session-planning"},
    {"quillmere://open/focus", "focus"},
    {"quillmere://open/session-review", "session-review"},
    {"quillmere://open/break", "break"},
    {"QUILLMERE://open/block-review", "block-review"},
};

TEST(Open, printsTheScreenThatALinkNames)
{
    const Person person;
    for (const Link& link : links) {
        EXPECT_EQ(person.types({"open", link.text}).out, std::string(link.screen) + "\n");
        const std::string json = person.types({"open", link.text, "--json"}).out;
        EXPECT_EQ(jsonAt("/screen", json), '"' + std::string(link.screen) + '"');
        EXPECT_EQ(jsonAt("/link", json), R"("quillmere://open/)" + std::string(link.screen) + '"');
    }
    EXPECT_EQ(person.names(), Words{});
}

TEST(Open, refusesAnyOtherLink)
{
    const Person person;
    for (const char* link : {"", "focus", "quillmere://open/elsewhere", "https://open/focus", "\xFF"}) {
        const Ending ending = person.types({"open", link});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, std::string("This is not a link of Quillmere: ") + base::sanitized(link) +
                                  ". They look like quillmere://open/focus.\n");
    }
    EXPECT_EQ(person.types({"open"}).code, ExitCode::usage);
}

}  // namespace
}  // namespace quillmere::test
