// Commands of a person who has configured the program.
#include "figures_testing.hpp"
#include "program_testing.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

class Configured : public testing::Test {
protected:
    Configured() { person.configDirectory = place.path(); }

    const TemporaryDirectory place;
    Person person;

    void has(const std::string& text) const { writeText(place.path() / "config.toml", text); }
};

TEST_F(Configured, planBeginsWithTheLengthsOfTheConfiguration)
{
    has("block = { focus = '50m', break = '10m', cycles = 3 }");
    ASSERT_EQ(person.types({"plan", "--start"}).code, ExitCode::done);
    const Block block = *person.state().currentBlock;
    EXPECT_EQ(block.focusDurationSeconds, 3000);
    EXPECT_EQ(block.breakDurationSeconds, 600);
    EXPECT_EQ(block.cycleCount, 3);
}

TEST_F(Configured, optionsComeBeforeTheConfiguration)
{
    has("block.focus = '50m'");
    ASSERT_EQ(person.types({"plan", "--start", "--focus", "25m"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->focusDurationSeconds, 1500);
}

TEST_F(Configured, aDroppedBlockComesBackWithItsOwnLengths)
{
    has("block.focus = '50m'");
    person.types({"plan", "--at", "+1h", "--focus", "25m"});
    person.types({"cancel", "--yes"});
    ASSERT_EQ(person.types({"plan", "--draft", "--start"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->focusDurationSeconds, 1500);
}

TEST_F(Configured, filesAreInTheConfiguredDirectory)
{
    const TemporaryDirectory files;
    has("directory = '" + files.path().string() + "'");
    ASSERT_EQ(person.runs({"plan", "--start"}).code, ExitCode::done);
    EXPECT_TRUE(std::filesystem::exists(files.path() / "state.json"));
    EXPECT_TRUE(std::filesystem::exists(files.path() / "widget-snapshot.json"));
}

TEST_F(Configured, theOptionForTheDirectoryComesBeforeTheConfiguration)
{
    const TemporaryDirectory files;
    has("directory = '" + files.path().string() + "'");
    ASSERT_EQ(person.types({"plan", "--start"}).code, ExitCode::done);
    EXPECT_EQ(files.names(), std::vector<std::string>());
}

TEST_F(Configured, doctorSaysThatTheConfigurationChoseTheDirectory)
{
    const TemporaryDirectory files;
    has("directory = '" + files.path().string() + "'");
    EXPECT_NE(person.runs({"doctor", "--json"}).out.find("chosen by the configuration"), std::string::npos);
}

TEST_F(Configured, nowBeginsABlockWithTheLengthsOfTheConfiguration)
{
    has("[block]\nfocus = '50m'\nbreak = '10m'");
    person.types({"now", "Outline", "--energy", "4", "--morale", "3"});
    EXPECT_EQ(person.state().currentBlock->focusDurationSeconds, 3'000);
    EXPECT_EQ(person.state().currentBlock->breakDurationSeconds, 600);
    EXPECT_EQ(person.state().currentBlock->cycleCount, 1);
}

TEST_F(Configured, theReportHasTheDaysAndTheGoalOfTheConfiguration)
{
    const TimeZone here("UTC");
    has("daily-goal = '1h'\ndays-off = ['sunday']\nday-begins = 4\nweek-begins = 'sunday'");
    person.now = local("2026-11-16 12:00");
    person.has(stateWith({session(local("2026-11-14 02:00"), 3600), session(local("2026-11-16 03:00"), 60),
                          session(local("2026-11-16 10:00"), 1800)}));
    const std::string json = person.types({"report", "--json"}).out;
    EXPECT_EQ(jsonAt("/days/0/day", json), "\"2026-11-13\"");
    EXPECT_EQ(jsonAt("/days/1/day", json), "\"2026-11-15\"");
    EXPECT_EQ(jsonAt("/weeks/1/week", json), "\"2026-W47\"");
    EXPECT_EQ(jsonAt("/goal", json), R"({"days":2,"reached_days":1,"seconds":3600,"today_seconds":1800})");
    EXPECT_NE(person.types({"report"})
                  .out.find("Goal         1 h a day, reached on 1 of 2 days; 30 min so far today\n"),
              std::string::npos);
}

// 15:00 on the person's clock.
TEST_F(Configured, timesAreShownWithTwelveHours)
{
    const TimeZone here("UTC");
    has("clock = '12h'");
    person.types({"plan", "--at", "+1h"});
    EXPECT_NE(person.types({"status"}).out.find("  4:00 pm to 8:00 pm\n"), std::string::npos);
    EXPECT_EQ(person.typesLater(3600, {"tick"}).err, "The scheduled block started at 4:00 pm.\n");
    person.types({"ask", "Which build?"});
    EXPECT_NE(person.types({"questions"}).out.find("(2026-11-15 4:00 pm)"), std::string::npos);
    EXPECT_NE(person.types({"restore"}).out.find("2026-11-15 4:00:00 pm"), std::string::npos);
    EXPECT_NE(person.types({"widget"}).out.find(" 4:00 pm"), std::string::npos);
    EXPECT_EQ(person.types({"status"}).out.find("16:00"), std::string::npos);
    const std::string undone = person.types({"undo", "--yes"}).out;
    EXPECT_NE(undone.find("(4:00 pm)"), std::string::npos) << undone;
}

TEST_F(Configured, timesAreRefusedWithTwelveHours)
{
    const TimeZone here("UTC");
    has("clock = '12h'");
    for (const Words& command :
         {Words{"plan", "--at", "2026-11-15 14:00"}, {"edit", "--at", "2026-11-15 14:00"}}) {
        EXPECT_EQ(
            person.types(command).err,
            "--at: The time to begin, 2026-11-15 2:00 pm, has passed; name a later time, or begin now.\n");
        person.types({"plan", "--at", "+1h"});
    }
}

TEST_F(Configured, promptsRefuseTimesWithTwelveHours)
{
    const TimeZone here("UTC");
    has("clock = '12h'");
    person.isAsked = true;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    person.now = moment + 4'000;
    person.answers = "2026-11-15 14:00\ndrop\n";
    EXPECT_NE(person.types({"cancel"}).err.find("The time to begin, 2026-11-15 2:00 pm, has passed"),
              std::string::npos);
}

TEST_F(Configured, doctorSaysTimesWithTwelveHours)
{
    const TimeZone here("UTC");
    has("clock = '12h'");
    person.types({"ask", "One?"});
    person.types({"ask", "Two?"});
    person.now = moment - 3600;
    const std::string json = person.types({"doctor", "--json"}).out;
    EXPECT_NE(json.find("The clock shows 2026-11-15 2:00:00 pm. "), std::string::npos) << json;
    EXPECT_NE(json.find(" is dated after that: 2026-11-15 3:00:00 pm."), std::string::npos) << json;
    EXPECT_NE(json.find("the newest of 2026-11-15 3:00 pm, in "), std::string::npos) << json;
}

TEST_F(Configured, theWatchRunsTheHooksOfTheConfiguration)
{
    const EnvironmentVariable noBus("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const std::filesystem::path file = place.path() / "events";
    has("watch.hooks = ['echo $1 >> " + file.string() + "']");
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 2'000;
    EXPECT_EQ(person.types({"watch", "--once"}).code, ExitCode::done);
    EXPECT_EQ(textOf(file), "focus_ended\n");
}

TEST_F(Configured, aWrongValueIsSaidOnceAndTheCommandGoesOn)
{
    has("block.focus = '50m'\nblock.cycles = 0");
    const Ending ending = person.types({"plan", "--start"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, (place.path() / "config.toml").string() +
                              ":2:16: block.cycles must be a whole number from 1 to 1000; it is left out.\n");
    EXPECT_EQ(person.state().currentBlock->focusDurationSeconds, 3000);
    EXPECT_EQ(person.state().currentBlock->cycleCount, 8);
}

TEST_F(Configured, aWrongValueIsAWarningForPrograms)
{
    has("block.cycles = 0");
    const Ending ending = person.types({"plan", "--start", "--json"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_NE(jsonAt("/warning", ending.err).find("block.cycles must be"), std::string::npos);
}

TEST_F(Configured, helpSaysNothingOfAWrongValue)
{
    has("block.cycles = 0");
    EXPECT_EQ(person.types({"--help"}).err, "");
}

}  // namespace
}  // namespace quillmere::test
