// Earlier versions are kept with every change, listed, and restored.
#include <functional>
#include <sstream>
#include <utility>

#include "program_testing.hpp"
#include "workspace/state_home.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

const std::string hint =
    "quillmere restore NUMBER restores one of them; with --diff it says what that would change.\n";

/// A person who has asked two questions, which made two versions.
Person personWithVersions()
{
    Person person;
    person.has(stateIn(WorkflowState::idle));
    person.typesLater(60, {"ask", "First?"});
    person.typesLater(60, {"ask", "Second?"});
    return person;
}

/// The directory of the versions of the person's files.
fs::path versionsOf(const Person& person)
{
    return workspace::stateDirectory(person.directory(), person.stateHome()) / "versions";
}

/// The file of the version with a number of these digits; fails the test when there is none.
fs::path fileOfVersion(const Person& person, const std::string& digits)
{
    for (const std::string& name : namesIn(versionsOf(person))) {
        if (name.starts_with(digits)) {
            return versionsOf(person) / name;
        }
    }
    ADD_FAILURE() << "there is no version " << digits;
    return {};
}

/// A stream buffer that calls a function at the first output.
class ActingOutput : public std::stringbuf {
public:
    explicit ActingOutput(std::function<void()>& act) : act_(act) {}

protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        if (act_) {
            std::exchange(act_, nullptr)();
        }
        return std::stringbuf::xsputn(text, size);
    }

private:
    std::function<void()>& act_;
};

/// Runs a command on a terminal with the given state home; calls `act` at the first output.
Ending typesWith(const fs::path& stateHome, const Person& person, const Words& arguments,
                 std::function<void()> act = nullptr)
{
    std::istringstream in(person.answers);
    ActingOutput results(act);
    ActingOutput messages(act);
    std::ostream out(&results);
    std::ostream err(&messages);
    base::Environment environment{
        .in = in,
        .out = out,
        .err = err,
        .clock = [&] { return person.now; },
        .inputIsTerminal = true,
        .outputIsTerminal = false,
        .stateHome = stateHome,
    };
    Words all = {"--directory", person.directory().string()};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const ExitCode code = cli::run(all, environment);
    return {.code = code, .out = results.str(), .err = messages.str()};
}

std::size_t questionCount(const Person& person) { return person.state().agentQuestions.size(); }

TEST(Restore, listsTheVersionsThatChangesLeaveBehind)
{
    const TimeZone zone("UTC");
    const Ending ending = personWithVersions().types({"restore"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out,
              "2  2026-11-15 15:01:00  Idle, 0 finished blocks\n"
              "    then: question was asked at 15:02: Second?\n"
              "1  2026-11-15 15:00:00  Idle, 0 finished blocks\n"
              "    then: question was asked at 15:01: First?\n" +
                  hint);
}

TEST(Restore, showsThePhaseAndTheOutcomeOfEachVersion)
{
    const TimeZone zone("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.types({"pause"});
    person.typesLater(5, {"resume"});
    const std::string outcome = person.widgetSummary().intendedOutcome;
    EXPECT_EQ(person.types({"restore"}).out,
              "2  2026-11-15 15:00:00  Focus (paused), 0 finished blocks: " + outcome +
                  "\n    then: focus session 1 resumed\n"
                  "1  2026-11-15 15:00:00  Focus, 0 finished blocks: " +
                  outcome + "\n    then: focus session 1 paused\n" + hint);
    const std::string list = person.types({"restore", "--json"}).out;
    EXPECT_EQ(jsonAt("/0/content/paused", list), "true");
    EXPECT_EQ(jsonAt("/1/content/paused", list), "false");
}

TEST(Restore, cutsLinesToTheWidthOfTheTerminal)
{
    const TimeZone zone("UTC");
    const EnvironmentVariable width("COLUMNS", "40");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.types({"pause"});
    EXPECT_GT(person.types({"restore"}).out.find('\n'), 50U);
    person.seesColour = true;
    EXPECT_EQ(person.types({"restore"}).out.substr(0, 43), "1  2026-11-15 15:00:00  Focus, 0 finish\u2026\n");
}

TEST(Restore, listsThemForPrograms)
{
    const Ending ending = personWithVersions().types({"restore", "--json"});
    EXPECT_EQ(jsonAt("/0/number", ending.out), "2");
    EXPECT_EQ(jsonAt("/1/saved_at", ending.out), R"("2026-11-15T15:00:00Z")");
    EXPECT_EQ(jsonAt("/1/content/finished_blocks", ending.out), "0");
}

TEST(Restore, listsTheChangesThatReplacedAVersionForPrograms)
{
    const TimeZone zone("UTC");
    const std::string list = personWithVersions().types({"restore", "--json"}).out;
    EXPECT_EQ(jsonAt("/0/replaced_by", list), R"(["question was asked at 15:02: Second?"])");
    EXPECT_EQ(jsonAt("/1/replaced_by", list), R"(["question was asked at 15:01: First?"])");
}

TEST(Restore, namesTheFirstOfManyChangesThatReplacedAVersion)
{
    Person person = personWithVersions();
    QuillmereState state = person.state();
    for (const char* question : {"Third?", "Fourth?", "Fifth?", "Sixth?", "Seventh?"}) {
        state.agentQuestions.push_back(state.agentQuestions[0]);
        state.agentQuestions.back().id = Identifier::random();
        state.agentQuestions.back().question = question;
    }
    person.has(state);
    const std::string list = person.types({"restore"}).out;
    EXPECT_NE(list.find("Second?; question was asked at "), std::string::npos) << list;
    EXPECT_NE(list.find("Fourth?; and 3 more\n1  "), std::string::npos) << list;
}

TEST(Restore, saysWhatItWouldChange)
{
    const TimeZone zone("UTC");
    Person person;
    person.has(stateWithScheduledBlock());
    person.types({"cancel"});
    person.typesLater(60, {"ask", "May I?"});
    const auto before = pictureOf(person.directory());
    const auto versions = pictureOf(person.stateHome());
    const Ending ending = person.types({"restore", "--diff", "1"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out,
              "Would go:\n"
              "  question was asked at 15:01: May I?\n"
              "Would come back:\n"
              "  block scheduled for 16:00: Chapter one\n");
    const std::string json = person.types({"restore", "1", "--diff", "--json"}).out;
    EXPECT_EQ(keysOf(json), (Words{"number", "saved_at", "would_go", "would_come_back"}));
    EXPECT_EQ(jsonAt("/would_go", json), R"(["question was asked at 15:01: May I?"])");
    EXPECT_EQ(jsonAt("/would_come_back", json), R"(["block scheduled for 16:00: Chapter one"])");
    EXPECT_EQ(pictureOf(person.directory()), before);
    EXPECT_EQ(pictureOf(person.stateHome()), versions);
}

TEST(Restore, countsTheTimeThatPassedOnBothSidesOfAComparison)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.types({"pause"});
    person.types({"resume"});
    person.typesLater(3'600, {"tick"});
    EXPECT_EQ(person.types({"restore", "--diff", "1"}).out, "Version 1 is the same as the present state.\n");
}

TEST(Restore, comparesOnlyWithAVersionThatIsThere)
{
    Person person = personWithVersions();
    person.answers = "yes\n";
    for (const Words& arguments :
         {Words{"restore", "--diff"}, {"restore", "--diff", "7"}, {"restore", "--diff", "1", "--yes"}}) {
        EXPECT_EQ(person.types(arguments).code, ExitCode::usage);
    }
    EXPECT_EQ(questionCount(person), 2U);
    writeText(fileOfVersion(person, "000001"), "spoilt");
    EXPECT_EQ(person.types({"restore", "--diff", "1"}).code, ExitCode::unusableData);
}

TEST(Restore, hasNothingToListAtFirst)
{
    const Person person;
    EXPECT_EQ(person.types({"restore"}).out, "There is no earlier version yet.\n");
    EXPECT_TRUE(person.names().empty());
}

TEST(Restore, replacesTheStateByTheVersion)
{
    const Person person = personWithVersions();
    const Ending ending = person.types({"restore", "2", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out.substr(0, 24), "Version 2 is restored.\n\n");
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

TEST(Restore, requiresYesWithoutATerminal)
{
    const Person person = personWithVersions();
    const Ending ending = person.types({"restore", "1"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_TRUE(ending.err.starts_with("There is no terminal to confirm on: say --yes. The question is: "))
        << ending.err;
    EXPECT_EQ(questionCount(person), 2U);
}

TEST(Restore, refusesANumberWithoutAVersion)
{
    const Person person = personWithVersions();
    for (const char* number : {"0", "7", "-1"}) {
        EXPECT_EQ(person.types({"restore", "--yes", "--", number}).code, ExitCode::usage) << number;
    }
    EXPECT_EQ(questionCount(person), 2U);
}

TEST(Restore, replacesAStateThatCannotBeRead)
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

TEST(Restore, createsADirectoryThatWasDeleted)
{
    const Person person = personWithVersions();
    fs::remove_all(person.directory());
    EXPECT_EQ(person.types({"restore", "2", "--yes"}).code, ExitCode::done);
    EXPECT_EQ(questionCount(person), 1U);
}

TEST(Restore, listsAVersionThatCannotBeRead)
{
    const TimeZone zone("UTC");
    const Person person = personWithVersions();
    fs::permissions(fileOfVersion(person, "000002"), fs::perms::none);
    for (fs::path place = versionsOf(person); place != person.stateHome().parent_path();
         place = place.parent_path()) {
        fs::permissions(place, fs::perms::all);
    }
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "there is no ordinary user here";
    }
    const Ending ending = person.types({"restore"});
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    EXPECT_EQ(ending.out,
              "2  2026-11-15 15:01:00  cannot be read\n"
              "1  2026-11-15 15:00:00  Idle, 0 finished blocks\n" +
                  hint);
    EXPECT_EQ(jsonAt("/1/replaced_by", person.types({"restore", "--json"}).out), "null");
    EXPECT_EQ(jsonAt("/0/content", person.types({"restore", "--json"}).out), "null");
}

TEST(Restore, leavesOutAVersionThatIsDeletedMeanwhile)
{
    const TimeZone zone("UTC");
    const Person person = personWithVersions();
    const Ending ending = typesWith(person.stateHome(), person, {"restore"},
                                    [&] { fs::remove(fileOfVersion(person, "000001")); });
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    EXPECT_EQ(ending.out,
              "2  2026-11-15 15:01:00  Idle, 0 finished blocks\n"
              "    then: question was asked at 15:02: Second?\n" +
                  hint);
}

TEST(Restore, saysThatAVersionWasDeletedMeanwhile)
{
    Person person = personWithVersions();
    person.answers = "yes\n";
    const Ending ending = typesWith(person.stateHome(), person, {"restore", "1"},
                                    [&] { fs::remove(fileOfVersion(person, "000001")); });
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_NE(ending.err.find("Version 1 was deleted meanwhile; quillmere restore lists the versions.\n"),
              std::string::npos)
        << ending.err;
    EXPECT_EQ(questionCount(person), 2U);
}

TEST(Restore, saysWhyNoVersionsAreKeptWithoutAHome)
{
    const Person person = personWithVersions();
    for (const Words& arguments : {Words{"restore"}, {"restore", "1", "--yes"}, {"restore", "--json"}}) {
        const Ending ending = typesWith("", person, arguments);
        EXPECT_EQ(ending.code, ExitCode::refused);
        EXPECT_EQ(ending.out, "");
        EXPECT_NE(ending.err.find("No versions are kept: set XDG_STATE_HOME, or HOME, to an absolute path."),
                  std::string::npos)
            << ending.err;
    }
}

TEST(Versions, areNotKeptAmongTheFilesThemselves)
{
    // The state home is that directory, or lies in it.
    for (const char* stateHome : {"", "state", "some/where/below"}) {
        SCOPED_TRACE(stateHome);
        const Person person;
        const fs::path place = person.directory() / stateHome;
        EXPECT_EQ(typesWith(place, person, {"ask", "First?"}).code, ExitCode::done);
        const Ending ending = typesWith(place, person, {"ask", "Second?"});
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_EQ(ending.err, "");
        EXPECT_EQ(person.names(), (Words{"agent-state.json", "state.json", "widget-snapshot.json"}));
        EXPECT_EQ(typesWith(place, person, {"restore"}).err,
                  "No versions are kept: their directory, " + (place / "quillmere").string() +
                      ", lies in the directory of the files. Set XDG_STATE_HOME to another one.\n");
    }
}

TEST(Versions, areNotKeptInTheDirectoryOfTheFilesByAnyName)
{
    const Person person;
    const Person other;
    const fs::path link = other.directory() / "link";
    fs::create_directory_symlink(person.directory(), link);
    typesWith(link / "state", person, {"ask", "First?"});
    typesWith(link / "state", person, {"ask", "Second?"});
    EXPECT_EQ(person.names(), (Words{"agent-state.json", "state.json", "widget-snapshot.json"}));
}

TEST(Versions, areNotMadeByReadingOrByARefusal)
{
    const Person person = personWithVersions();
    const auto before = pictureOf(person.stateHome());
    person.types({"status"});
    person.types({"tick"});
    EXPECT_EQ(person.types({"resume"}).code, ExitCode::refused);
    EXPECT_EQ(pictureOf(person.stateHome()), before);
}

TEST(Versions, areKeptForAnEventAndForTheCommandAfterIt)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(1'600, {"ask", "First?"});
    const std::string list = person.types({"restore", "--json"}).out;
    EXPECT_EQ(jsonAt("/0/content/phase", list), R"("Review")");
    EXPECT_EQ(jsonAt("/1/content/phase", list), R"("Focus")");
}

TEST(Versions, thatCannotBeKeptAreReportedAndTheChangeIsMade)
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
