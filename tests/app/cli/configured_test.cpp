// Commands of a person who has configured the program.
#include "program_testing.hpp"
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
    EXPECT_NE(person.runs({"doctor"}).out.find("chosen by the configuration"), std::string::npos);
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
