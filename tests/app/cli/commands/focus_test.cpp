// A focus session: started, paused, resumed, ended.
#include "program_testing.hpp"

#include <limits>

namespace quillmere::test {
namespace {

/// Two outcomes, no session yet, and no plan for one.
Person personAboutToFocus(std::optional<SessionPlan> savedPlan = std::nullopt)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.plannedNextSession = std::move(savedPlan);
    person.has(state);
    return person;
}

SessionPlan planOfTheSession(const Person& person)
{
    const QuillmereState state = person.state();
    const WorkSession* session = state.currentSession();
    EXPECT_NE(session, nullptr);
    return session ? session->plan : samplePlan(99);
}

TEST(Focus, startsByTheSavedPlan)
{
    const Person person = personAboutToFocus(samplePlan(7));
    EXPECT_EQ(person.types({"focus"}).code, ExitCode::done);
    EXPECT_EQ(planOfTheSession(person), samplePlan(7));
    EXPECT_EQ(person.state().plannedNextSession, std::nullopt);
}

TEST(Focus, changesTheSavedPlanWhereOptionsSaySo)
{
    const Person person = personAboutToFocus(samplePlan(7));
    EXPECT_EQ(person.types({"focus", "--first-action", "Sit down", "--energy", "1", "--towards", "2"}).code,
              ExitCode::done);
    SessionPlan expected = samplePlan(7);
    expected.firstAction = "Sit down";
    expected.energy = 1;
    expected.blockOutcomeID = sampleBlock(1).outcomes[1].id;
    EXPECT_EQ(planOfTheSession(person), expected);
}

TEST(Focus, takesANewPlanWithRatings)
{
    const Person person = personAboutToFocus();
    EXPECT_EQ(person.types({"focus", "--framing", "As play", "--energy", "2", "--morale", "5"}).code,
              ExitCode::done);
    SessionPlan expected = SessionPlan::blank(planOfTheSession(person).id);
    expected.nicuFraming = "As play";
    expected.energy = 2;
    expected.morale = 5;
    EXPECT_EQ(planOfTheSession(person), expected);
}

struct Unrated {
    Words words;
    const char* missing;
};

const Unrated unratedPlans[] = {
    {{"focus", "--framing", "As play"}, "--energy and --morale"},
    {{"focus", "--morale", "3"}, "--energy"},
    {{"focus", "--outcome", "A page", "--energy", "3"}, "--morale"},
};

TEST(Focus, inventsNoRating)
{
    const Person person = personAboutToFocus();
    const auto before = pictureOf(person.directory());
    for (const Unrated& unrated : unratedPlans) {
        const Ending ending = person.types(unrated.words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err,
                  "The session needs your own rating: say " + std::string(unrated.missing) + ", 1 to 5.\n");
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Focus, takesAnEmptyTextForAPlan)
{
    const Person person = personAboutToFocus();
    EXPECT_EQ(person.types({"focus", "--outcome", "", "--energy", "3", "--morale", "3"}).code,
              ExitCode::done);
    EXPECT_EQ(planOfTheSession(person).intendedOutcome, "");
}

TEST(Focus, needsAPlan)
{
    const Person person = personAboutToFocus();
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types({"focus", "--json"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(
        jsonAt("/error", ending.err),
        R"({"case":"missingSessionPlan","message":"Save a session plan before focus starts. Give --outcome TEXT."})");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Focus, leavesItToTheEngineToRefuseRatings)
{
    const Person person = personAboutToFocus();
    const auto before = pictureOf(person.directory());
    for (const char* option : {"--energy", "--morale"}) {
        for (const char* rating : {"0", "6", "-9223372036854775808"}) {
            const Ending ending = person.types({"focus", option, rating});
            EXPECT_EQ(ending.code, ExitCode::refused);
            EXPECT_EQ(ending.err, "Energy and Morale must each be from 1 through 5.\n");
        }
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Focus, takesWholeNumbersForRatingsOnly)
{
    const Person person = personAboutToFocus();
    for (const char* rating : {"3.5", "high", "", "9223372036854775808"}) {
        SCOPED_TRACE(rating);
        EXPECT_EQ(person.types({"focus", "--energy", rating}).code, ExitCode::usage);
    }
}

TEST(Focus, worksTowardsOneOfTheOutcomesOnly)
{
    const Person person = personAboutToFocus();
    const auto before = pictureOf(person.directory());
    for (const std::int64_t number :
         {std::int64_t{0}, std::int64_t{3}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::max(),
          std::numeric_limits<std::int64_t>::min()}) {
        const Ending ending = person.types({"focus", "--towards", std::to_string(number)});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, "The block has no outcome " + std::to_string(number) + ".\n");
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Pause, stopsTheClock)
{
    const TimeZone here("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(600, {"pause"});
    EXPECT_TRUE(
        ending.out.starts_with("Paused.\n\n"
                               "Focus  Session 1 of 3\n"
                               "15:00  [##########..............]  paused since 15:10\n"))
        << ending.out;
    EXPECT_EQ(person.state().currentSession()->pausedAt, moment + 600);
    person.now = person.now + 50'000;
    EXPECT_EQ(jsonAt("/time_text", person.types({"status", "--json"}).out), R"("15:00")");
}

TEST(Resume, letsTheClockRunAgain)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(600, {"pause"});
    EXPECT_EQ(person.typesLater(3600, {"resume"}).code, ExitCode::done);
    const WorkSession session = *person.state().currentSession();
    EXPECT_EQ(session.pausedAt, std::nullopt);
    EXPECT_EQ(session.accumulatedPausedSeconds, 3600);
    EXPECT_EQ(jsonAt("/time_text", person.typesLater(60, {"status", "--json"}).out), R"("14:00")");
}

TEST(End, closesARunningPauseFirst)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(600, {"pause"});
    EXPECT_EQ(person.typesLater(100, {"end"}).code, ExitCode::done);
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(state.currentSession()->accumulatedPausedSeconds, 100);
    EXPECT_EQ(state.currentSession()->endedAt, moment + 700);
}

TEST(End, isRecordedInWholeSeconds)
{
    // The state in memory would differ from the file.
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 10.999;
    EXPECT_EQ(person.types({"end"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 10);
}

}  // namespace
}  // namespace quillmere::test
