// `quillmere bar` as one run.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "hostile_texts.hpp"
#include "program_testing.hpp"
#include "real_program.hpp"

namespace quillmere::test {
namespace {

Person personWith(const WidgetSnapshot& summary)
{
    Person person;
    WidgetSnapshotStore(person.directory()).save(summary);
    person.now = moment + 600.75;
    return person;
}

const Words formats = {"waybar", "i3blocks", "polybar", "tmux", "text", "json"};

TEST(Bar, printsTextUnlessAFormatIsGiven)
{
    const Person person = personWith(summaryWith("Chapter <one>"));
    const Ending ending = person.types({"bar"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out, "Focus 15:00 \u00B7 Session 1 of 3 \u00B7 4 questions \u00B7 Chapter <one>\n");
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(person.types({"bar", "--format", "text"}).out, ending.out);
    const Ending json = person.types({"bar", "--json"});
    EXPECT_EQ(jsonAt("/phase", json.out), R"("focusing")");
    EXPECT_EQ(person.types({"bar", "--format", "json"}).out, json.out);
    EXPECT_NE(person.types({"bar", "--format", "waybar"}).out.find("&lt;one&gt;"), std::string::npos);
}

TEST(Bar, cutsTheLineToTheGivenWidth)
{
    const Person person = personWith(summaryWith("Chapter"));
    EXPECT_EQ(person.types({"bar", "--width", "11"}).out, "Focus 15:0\u2026\n");
    EXPECT_EQ(person.types({"bar", "--width", "1000"}).out, person.types({"bar"}).out);
    for (const char* width : {"0", "1001", "-1", "x", "", "99999999999999999999"}) {
        SCOPED_TRACE(width);
        EXPECT_EQ(person.types({"bar", "--width", width}).code, ExitCode::usage);
    }
}

TEST(Bar, refusesUnknownFormats)
{
    const Ending ending = Person().types({"bar", "--format", "dzen"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_NE(ending.err.find("is none of waybar, i3blocks, polybar, tmux, text, json"), std::string::npos);
}

TEST(Bar, exitsWith33InOvertimeForI3blocksOnly)
{
    const TimeZone utc("UTC");
    Person person = personWith(summaryWith("Chapter"));
    for (const std::string& format : formats) {
        SCOPED_TRACE(format);
        person.now = moment + 1499.75;
        EXPECT_EQ(person.types({"bar", "--format", format}).code, ExitCode::done);
        person.now = moment + 1500;
        const Ending late = person.types({"bar", "--format", format});
        EXPECT_EQ(late.code, format == "i3blocks" ? ExitCode::urgent : ExitCode::done);
        EXPECT_NE(late.out.find("over since 15:25"), std::string::npos) << late.out;
        EXPECT_EQ(late.err, "");
    }
}

TEST(Bar, readsOnlyTheSummaries)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const std::string line = person.types({"bar"}).out;
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_EQ(person.types({"bar"}).out, line);
}

TEST(Bar, readsTheWidgetsSummaryAloneWhereTheAgentsCannotBeRead)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const std::string line = person.types({"bar"}).out;
    for (const std::string& text : {std::string("spoilt"), std::string(), std::string(300'000, ' ')}) {
        writeText(person.store().agentStateURL(), text);
        const Ending ending = person.types({"bar"});
        EXPECT_EQ(ending.out, line);
        EXPECT_EQ(ending.err, "");
    }
    std::filesystem::remove(person.store().agentStateURL());
    EXPECT_EQ(person.types({"bar"}).out, line);
}

TEST(Bar, saysTheSameWhetherTheEndOfASessionIsRecordedOrNot)
{
    const TimeZone utc("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 1'600.5;
    for (const std::string& format : formats) {
        person.has(stateIn(WorkflowState::focusing));
        const Ending before = person.types({"bar", "--format", format});
        ASSERT_EQ(person.types({"tick"}).code, ExitCode::done);
        const Ending after = person.types({"bar", "--format", format});
        if (format != "json") {
            EXPECT_EQ(before.out, after.out);
        }
        EXPECT_EQ(before.code, after.code);
        EXPECT_NE(before.out.find("Review over since 15:25"), std::string::npos) << before.out;
    }
}

TEST(Bar, standsStillInAPauseInWhichSomethingIsSaved)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(600, {"pause"});
    for (int question = 0; question < 3; ++question) {
        ASSERT_EQ(person.typesLater(600, {"ask", "May I?"}).code, ExitCode::done);
        EXPECT_EQ(jsonAt("/percentage", person.types({"bar", "--json"}).out), "40");
    }
}

TEST(Bar, beginsAScheduledBlockThatNobodyHasBegun)
{
    Person person;
    person.has(stateWithScheduledBlock());
    person.now = moment + 3'599.75;
    EXPECT_EQ(jsonAt("/phase", person.types({"bar", "--json"}).out), R"("idle")");
    person.now = moment + 3'600;
    EXPECT_EQ(person.types({"bar"}).out, "Planning \u00B7 Plan the next session \u00B7 Chapter one\n");
}

TEST(Bar, readsTimesAsThePersonDoes)
{
    const TimeZone utc("UTC");
    const TemporaryDirectory configuration;
    writeText(configuration.path() / "config.toml", "clock = \"12h\"\n");
    Person person;
    person.configDirectory = configuration.path();
    person.has(stateIn(WorkflowState::breaking));
    person.now = moment + 400;
    EXPECT_EQ(person.types({"bar"}).out, "Break over since 3:05 pm \u00B7 Outcome of session 2\n");
}

TEST(Bar, isIdleBeforeAnythingWasSaved)
{
    const Person person;
    EXPECT_EQ(person.types({"bar"}).out, "Idle \u00B7 No active block\n");
    EXPECT_EQ(person.runs({"bar", "--directory", (person.directory() / "missing").string()}).code,
              ExitCode::done);
    EXPECT_EQ(person.names(), Words{});
}

TEST(Bar, printsNoLineForASummaryThatCannotBeRead)
{
    const Person person = personWith(summaryWith("Chapter"));
    writeText(person.directory() / WidgetSnapshotStore::fileName, "{}");
    for (const std::string& format : formats) {
        const Ending ending = person.types({"bar", "--format", format});
        EXPECT_EQ(ending.code, ExitCode::unusableData);
        EXPECT_EQ(ending.out, "");
        EXPECT_EQ(ending.err, "The widget's summary cannot be read.\n");
    }
}

TEST(Bar, writesNoFileAndNeedsNoLock)
{
    // A command that took the lock would fail after five seconds with another code.
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 100'000;
    const Descriptor locked(::open(person.directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(locked.get(), LOCK_EX | LOCK_NB), 0);
    const auto before = pictureOf(person.directory());
    for (const std::string& format : formats) {
        SCOPED_TRACE(format);
        const ExitCode code = person.types({"bar", "--format", format}).code;
        EXPECT_EQ(code, format == "i3blocks" ? ExitCode::urgent : ExitCode::done);
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Bar, worksInADirectoryThatCannotBeWritten)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions hold nobody back here";
    }
    const Person person = personWith(summaryWith("Chapter"));
    std::filesystem::permissions(person.directory(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    for (const std::string& format : formats) {
        EXPECT_EQ(person.types({"bar", "--format", format}).code, ExitCode::done);
    }
    std::filesystem::permissions(person.directory(), std::filesystem::perms::owner_all);
}

TEST(Bar, exitsWith74WhenTheOutputCannotBeWritten)
{
    const Person person = personWith(summaryWith("Chapter"));
    const std::string directory = person.directory().string();
    for (const Words& words : {Words{"bar"}, Words{"bar", "--follow"}}) {
        Words line = {"--directory", directory};
        line.insert(line.end(), words.begin(), words.end());
        EXPECT_EQ(runProgram(line, {.out = fullDevice()}).code, 74);
        EXPECT_EQ(runProgram(line, {.out = Channel::closed()}).code, 74);
        EXPECT_EQ(runProgram(line, noChannels()).code, 74);
    }
}

}  // namespace
}  // namespace quillmere::test
