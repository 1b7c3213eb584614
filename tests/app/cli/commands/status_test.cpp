// `quillmere status`.
#include "marked_block.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

struct Shown {
    WorkflowState workflowState;
    const char* heading;
    const char* next;
};

// Ten minutes after the start of the session or break.
constexpr Shown shownStates[] = {
    {WorkflowState::idle, "Idle  No active block\n", "plan, now"},
    {WorkflowState::blockPlanning, "Planning  Plan the block\n", "plan, cancel"},
    {WorkflowState::sessionPlanning, "Planning  Plan the next session\n", "focus, now, cancel, change"},
    {WorkflowState::focusing, "Focus  Session 1 of 3\n15:00  [##########..............]  until 15:25\n",
     "pause, end, change, extend, end --at, away"},
    {WorkflowState::sessionReview, "Review  Review this session\n",
     "review, review --finish, change, extend, end --at"},
    {WorkflowState::breaking, "Break  Break\nover since 15:05  [########################]\n",
     "break end, break extend, finish, change"},
    {WorkflowState::blockReview, "Review  Look back on the block\n", "reflect, change"},
};

TEST(Status, hasAtEachMomentTheWordsThatHelp)
{
    const Person person;
    for (const WorkflowState state : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(state));
        person.has(markedStateIn(state));
        expectAll(markersPromisedIn(state), person.types({"status"}).out);
    }
}

TEST(Status, showsEveryStateWithWhatMayBeDoneNext)
{
    const TimeZone here("UTC");
    for (const Shown& shown : shownStates) {
        SCOPED_TRACE(rawValue(shown.workflowState));
        Person person;
        person.has(stateIn(shown.workflowState));
        const Ending ending = person.typesLater(600, {"status"});
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_TRUE(ending.out.starts_with(shown.heading)) << ending.out;
        EXPECT_TRUE(ending.out.ends_with("\n\nNext: " + std::string(shown.next) + "\n")) << ending.out;
        EXPECT_EQ(ending.err, "");
    }
}

/// The progress bar in the output of status.
std::string barOf(const Ending& status)
{
    const std::size_t place = status.out.find('[');
    return place == std::string::npos ? "" : status.out.substr(place, 26);
}

TEST(Status, showsABarThatStandsStillInAPause)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(600, {"pause"});
    for (const double later : {0.0, 60.0, 3600.0, 86'400.0}) {
        EXPECT_EQ(barOf(person.typesLater(later, {"status"})), "[##########..............]");
    }
}

TEST(Status, showsABarThatGoesOnFromWhereItStoodBeforeAPause)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(600, {"pause"});
    EXPECT_EQ(barOf(person.typesLater(3600, {"resume"})), "[##########..............]");
    EXPECT_EQ(barOf(person.typesLater(250, {"status"})), "[##############..........]");
}

TEST(Status, showsTheShareOfABreakWithItsExtension)
{
    Person person;
    person.has(stateIn(WorkflowState::breaking));
    EXPECT_EQ(barOf(person.typesLater(150, {"status"})), "[############............]");
    EXPECT_EQ(barOf(person.types({"break", "extend", "5m"})), "[######..................]");
}

TEST(Status, offersOnlyWhatIsNotRefused)
{
    const TimeZone here("UTC");
    // The options that each command needs.
    const std::map<std::string, Words> needs = {
        {"plan", {"--start"}},
        {"now", {"More", "--energy", "4", "--morale", "3"}},
        {"focus", {"--outcome", "More", "--energy", "4", "--morale", "3"}},
        {"review",
         {"--completion", "yes", "--next-outcome", "More", "--next-energy", "4", "--next-morale", "3"}},
        {"break extend", {"5m"}},
        {"edit", {"--why", "Another reason"}},
        {"cancel", {"--yes"}},
        {"change", {"--cycles", "4"}},
        {"extend", {"5m"}},
        {"end --at", {"15:00:00"}},
        {"away", {"--from", "15:00:00"}},
        {"review --finish", {"--completion", "yes"}},
        {"reset", {"--yes"}},
    };
    std::vector<QuillmereState> states = {stateWithScheduledBlock()};
    for (const Shown& shown : shownStates) {
        states.push_back(stateIn(shown.workflowState));
    }
    for (const QuillmereState& state : states) {
        SCOPED_TRACE(rawValue(state.workflowState));
        Person person;
        person.now = moment + 60;
        person.has(state);
        const std::string next = jsonAt("/next", person.types({"status", "--json"}).out);
        std::size_t count = 0;
        for (const char* command : {"plan",      "now",          "start",           "edit",   "cancel",
                                    "focus",     "pause",        "resume",          "end",    "review",
                                    "break end", "break extend", "reflect",         "change", "extend",
                                    "end --at",  "away",         "review --finish", "finish", "reset"}) {
            const std::string words = command;
            const std::size_t space = words.find(' ');
            Words arguments = space == std::string::npos
                                  ? Words{words}
                                  : Words{words.substr(0, space), words.substr(space + 1)};
            if (needs.contains(words)) {
                arguments.insert(arguments.end(), needs.at(words).begin(), needs.at(words).end());
            }
            person.has(state);
            const bool isOffered = next.find('"' + words + '"') != std::string::npos;
            EXPECT_EQ(person.types(arguments).code, isOffered ? ExitCode::done : ExitCode::refused) << words;
            count += isOffered ? 1 : 0;
        }
        EXPECT_GT(count, 0u);
    }
}

TEST(Status, isWhatHappensWhenNoCommandIsNamed)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    EXPECT_EQ(person.types({}).out, person.types({"status"}).out);
    EXPECT_EQ(person.types({"--json"}).out, person.types({"status", "--json"}).out);
}

TEST(Status, tellsProgramsTheSame)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.agentQuestions = fullState().agentQuestions;
    person.has(state);
    const std::string json = person.typesLater(600, {"status", "--json"}).out;
    EXPECT_EQ(keysOf(json), (Words{"workflow_state", "caption", "interruptible", "next", "widget",
                                   "time_text", "block_id"}));
    EXPECT_EQ(jsonAt("/workflow_state", json), R"("focusing")");
    EXPECT_EQ(jsonAt("/caption", json), R"("Session 1 of 3")");
    EXPECT_EQ(jsonAt("/interruptible", json), "false");
    EXPECT_EQ(jsonAt("/next", json), R"(["pause","end","change","extend","end --at","away"])");
    EXPECT_EQ(jsonAt("/time_text", json), R"("15:00")");
    EXPECT_EQ(jsonAt("/widget/open_question_count", json), "1");
    EXPECT_EQ(jsonAt("/widget/updated_at", json), R"("2026-11-15T15:10:00Z")");
}

TEST(Status, countsTheQuestionsThatWait)
{
    const Person person;
    person.types({"ask", "First?"});
    EXPECT_TRUE(person.types({"status"})
                    .out.ends_with("\nA question waits (quillmere questions)\nNext: plan, now\n"));
    person.types({"ask", "Second?"});
    EXPECT_TRUE(person.types({"status"})
                    .out.ends_with("\n2 questions wait (quillmere questions)\nNext: plan, now\n"));
}

TEST(Status, tellsANewPersonWhatABlockIs)
{
    const Person person;
    EXPECT_EQ(person.types({"status"}).out,
              "Idle  No active block\n\n"
              "A block of work\n"
              "  You say what should come out of it, and why.\n"
              "  You work through it in sessions of focus, with breaks between.\n"
              "  You compare what you meant with what you did.\n\n"
              "Next: plan, now\n");
    EXPECT_EQ(person.names(), Words{});
}

}  // namespace
}  // namespace quillmere::test
