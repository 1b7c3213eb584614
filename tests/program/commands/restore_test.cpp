// Earlier versions are kept with every change, and brought back.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// Somebody who has asked two questions, one after the other.
Person personWithVersions()
{
    Person person;
    person.has(stateIn(WorkflowState::idle));
    person.typesLater(60, {"ask", "First?"});
    person.typesLater(60, {"ask", "Second?"});
    return person;
}

std::size_t questionCount(const Person& person) { return person.state().agentQuestions.size(); }

TEST(Restore, listsTheVersionsThatChangesLeaveBehind)
{
    const TimeZone zone("UTC");
    const Ending ending = personWithVersions().types({"restore"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out,
              "2  2026-11-15 15:01  Idle, 0 finished blocks\n"
              "1  2026-11-15 15:00  Idle, 0 finished blocks\n"
              "quillmere restore NUMBER brings one back.\n");
}

TEST(Restore, listsThemForPrograms)
{
    const Ending ending = personWithVersions().types({"restore", "--json"});
    EXPECT_EQ(jsonAt("/0/number", ending.out), "2");
    EXPECT_EQ(jsonAt("/1/saved_at", ending.out), R"("2026-11-15T15:00:00Z")");
    EXPECT_EQ(jsonAt("/1/content/finished_blocks", ending.out), "0");
}

TEST(Restore, hasNothingToListAtFirst)
{
    const Person person;
    EXPECT_EQ(person.types({"restore"}).out, "There is no earlier version yet.\n");
    EXPECT_TRUE(person.names().empty());
}

TEST(Restore, bringsAVersionBack)
{
    const Person person = personWithVersions();
    const Ending ending = person.types({"restore", "2", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out.substr(0, 20), "Version 2 is back.\n\n");
    EXPECT_EQ(questionCount(person), 1U);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Restore, keepsWhatItReplacesAsAVersion)
{
    const Person person = personWithVersions();
    person.types({"restore", "1", "--yes"});
    EXPECT_EQ(questionCount(person), 0U);
    EXPECT_EQ(person.types({"restore", "3", "--yes"}).code, ExitCode::done);
    EXPECT_EQ(questionCount(person), 2U);
}

TEST(Restore, asksFirstOnATerminal)
{
    Person person = personWithVersions();
    person.isAsked = true;
    person.answers = "perhaps\nno\n";
    EXPECT_EQ(person.types({"restore", "1"}).code, ExitCode::refused);
    EXPECT_EQ(questionCount(person), 2U);
    person.answers = "yes\n";
    EXPECT_EQ(person.types({"restore", "1"}).code, ExitCode::done);
    EXPECT_EQ(questionCount(person), 0U);
}

TEST(Restore, wantsAYesWhereNobodyCanBeAsked)
{
    const Person person = personWithVersions();
    const Ending ending = person.types({"restore", "1"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err, "Say --yes to replace what is there now.\n");
    EXPECT_EQ(questionCount(person), 2U);
}

TEST(Restore, doesNotKnowAVersionThatIsNotThere)
{
    const Person person = personWithVersions();
    for (const char* number : {"0", "7", "-1"}) {
        EXPECT_EQ(person.types({"restore", "--yes", "--", number}).code, ExitCode::usage) << number;
    }
    EXPECT_EQ(questionCount(person), 2U);
}

TEST(Restore, mendsAStateThatCannotBeRead)
{
    const Person person = personWithVersions();
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_EQ(person.types({"status"}).code, ExitCode::unusableData);
    EXPECT_EQ(person.types({"restore", "2", "--yes"}).code, ExitCode::done);
    EXPECT_EQ(questionCount(person), 1U);
    // Even that is kept.
    EXPECT_NE(person.types({"restore"}).out.find("3  "), std::string::npos);
    EXPECT_NE(person.types({"restore"}).out.find("cannot be read"), std::string::npos);
}

TEST(Restore, refusesAVersionThatCannotBeRead)
{
    const Person person = personWithVersions();
    writeText(person.store().stateURL(), "spoilt");
    person.types({"restore", "2", "--yes"});
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"restore", "3", "--yes"}).code, ExitCode::unusableData);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Restore, bringsBackADirectoryThatIsGone)
{
    const Person person = personWithVersions();
    fs::remove_all(person.directory());
    EXPECT_EQ(person.types({"restore", "2", "--yes"}).code, ExitCode::done);
    EXPECT_EQ(questionCount(person), 1U);
}

TEST(Versions, areNotMadeByLookingOrByARefusal)
{
    const Person person = personWithVersions();
    const auto before = pictureOf(person.stateHome());
    person.types({"status"});
    person.types({"tick"});
    EXPECT_EQ(person.types({"resume"}).code, ExitCode::refused);
    EXPECT_EQ(pictureOf(person.stateHome()), before);
}

TEST(Versions, areKeptOnceWhenTimeHasPassedToo)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(1'600, {"ask", "First?"});
    const std::string list = person.types({"restore", "--json"}).out;
    EXPECT_EQ(jsonAt("/0/content/phase", list), R"("Focus")");
    EXPECT_EQ(jsonAt("/0/number", list), "1");  // and no other
}

TEST(Versions, thatCannotBeKeptAreSpokenOfAndTheChangeIsMade)
{
    const Person person;
    person.types({"ask", "First?"});
    writeText(person.stateHome() / "quillmere", "in the way");
    const Ending ending = person.types({"ask", "Second?"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err.substr(0, 53), "The version before this change could not be kept: mkd");
    EXPECT_EQ(questionCount(person), 2U);
    const Ending forPrograms = person.types({"ask", "Third?", "--json"});
    EXPECT_NE(jsonAt("/warning", forPrograms.err), "");
}

}  // namespace
}  // namespace quillmere::test
