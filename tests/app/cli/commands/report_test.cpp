// `quillmere report`: its output, and the files that it writes.
#include "base/refusal.hpp"
#include "figures_testing.hpp"
#include "generated_year.hpp"
#include "support/file_system.hpp"

#include <algorithm>
#include <quillmere/widget/app_group.hpp>

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

Person personWithAYear()
{
    Person person;
    person.has(generatedYear(person.now));
    return person;
}

TEST(Report, printsChartsForAPerson)
{
    const TimeZone here("UTC");
    const Ending ending = personWithAYear().types({"report"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out.substr(0, 29), "Look back  up to 2026-11-15\n\n");
    EXPECT_NE(ending.out.find("\nFocus week by week, worked of planned\n"), std::string::npos);
}

TEST(Report, printsFiguresForPrograms)
{
    const TimeZone here("UTC");
    const Person person;
    person.has(
        stateWith({session(local("2026-11-14 10:00"), 3600), session(local("2026-11-15 10:00"), 1860, 60)}));
    const std::string json = person.types({"report", "--json", "--since", "2026-11-01"}).out;
    EXPECT_EQ(keysOf(json), (Words{"since", "until", "today", "total", "focus_days", "sessions_without_time",
                                   "between_sessions", "current_streak", "longest_streak", "goal",
                                   "by_energy", "by_morale", "answers", "days", "weeks", "months"}));
    EXPECT_EQ(jsonAt("/since", json), "\"2026-11-01\"");
    EXPECT_EQ(jsonAt("/until", json), "null");
    EXPECT_EQ(jsonAt("/today", json), "\"2026-11-15\"");
    EXPECT_EQ(jsonAt("/total", json),
              "{\"completion\":{\"half\":2,\"no\":0,\"yes\":0},\"energy\":4.0,\"focus_seconds\":5400,"
              "\"morale\":3.0,"
              "\"paused_seconds\":60,\"paused_sessions\":1,\"planned_seconds\":3000,\"sessions\":2,"
              "\"worked_seconds\":5400}");
    EXPECT_EQ(jsonAt("/days/1/day", json), "\"2026-11-15\"");
    EXPECT_EQ(jsonAt("/days/1/focus_seconds", json), "1800");
    EXPECT_EQ(jsonAt("/weeks/0/week", json), "\"2026-W46\"");
    EXPECT_EQ(jsonAt("/months/0/month", json), "\"2026-11\"");
    EXPECT_EQ(jsonAt("/by_energy/3", json), "{\"half\":2,\"no\":0,\"rating\":4,\"yes\":0}");
    EXPECT_EQ(jsonAt("/current_streak", json),
              "{\"days\":2,\"first\":\"2026-11-14\",\"last\":\"2026-11-15\"}");
    EXPECT_EQ(jsonAt("/between_sessions/median_seconds", json), "82800");
    EXPECT_EQ(jsonAt("/goal", json), "null");
    const std::string empty = person.types({"report", "--json", "--since", "2027-01-01"}).out;
    EXPECT_EQ(jsonAt("/longest_streak", empty), "null");
    EXPECT_EQ(jsonAt("/total/energy", empty), "null");
    EXPECT_EQ(jsonAt("/between_sessions/median_seconds", empty), "null");
    EXPECT_EQ(jsonAt("/days", empty), "[]");
}

TEST(Report, printsTheAnswersToEachQuestionForPrograms)
{
    const TimeZone here("UTC");
    const Person person;
    person.has(stateWith({session(local("2026-11-14 10:00"), 3600)}));
    const std::string json = person.types({"report", "--json"}).out;
    EXPECT_EQ(keysOf(jsonAt("/answers", json)), (Words{"breaks_and_pauses", "distractions", "how_much",
                                                       "lessons", "mood", "outcomes", "plans", "when"}));
    EXPECT_EQ(jsonAt("/answers/how_much/this_week/focus_seconds", json), "3600");
    EXPECT_EQ(jsonAt("/answers/how_much/today/goal_seconds", json), "null");
    EXPECT_EQ(jsonAt("/answers/when/hours/10/focus_seconds", json), "3600");
    EXPECT_EQ(jsonAt("/answers/when/weekdays/5/weekday", json), "\"saturday\"");
    EXPECT_EQ(jsonAt("/answers/when/weekdays/5/sessions", json), "1");
    EXPECT_EQ(jsonAt("/answers/outcomes/outcomes/0/title", json), "\"Chapter one\"");
    EXPECT_EQ(jsonAt("/answers/outcomes/outcomes/0/trend_seconds", json), "[3600,0]");
    EXPECT_EQ(jsonAt("/answers/outcomes/trend_periods", json), "[\"2026-11-14\",\"2026-11-15\"]");
    EXPECT_EQ(jsonAt("/answers/plans/planned_sessions", json), "3");
    EXPECT_EQ(jsonAt("/answers/plans/over_seconds", json), "2100");
    EXPECT_EQ(jsonAt("/answers/plans/blocks/0/finished_early", json), "true");
    EXPECT_EQ(jsonAt("/answers/distractions/words", json),
              "[{\"foreseen\":0,\"sessions\":1,\"text\":\"mail\"}]");
    EXPECT_EQ(jsonAt("/answers/lessons/0/text", json), "\"Start with the hard part\"");
    EXPECT_EQ(jsonAt("/answers/mood/energy/high", json), "{\"half\":1,\"no\":0,\"yes\":0}");
    EXPECT_EQ(jsonAt("/answers/breaks_and_pauses/breaks/median_seconds", json), "null");
}

TEST(Report, showsAWeekOnOneScreenUnlessAllIsAskedFor)
{
    const TimeZone here("UTC");
    const Person person = personWithAYear();
    const std::string week = person.types({"report", "week"}).out;
    EXPECT_LE(std::count(week.begin(), week.end(), '\n'), 24) << week;
    EXPECT_NE(week.find("\nWith --all: "), std::string::npos) << week;
    const std::string all = person.types({"report", "week", "--all"}).out;
    EXPECT_NE(all.find("\nFocus day by day\n"), std::string::npos) << all;
    EXPECT_NE(person.types({"report", "8d"}).out.find("\nFocus day by day\n"), std::string::npos);
}

struct ExportCase {
    const char* option;
    const char* name;
    const char* begins;
};

constexpr ExportCase exportCases[] = {
    {"--html", "page", "<!DOCTYPE html>\n"},
    {"--csv", "table", "session_id,"},
    {"--ics", "calendar", "BEGIN:VCALENDAR\r\n"},
};

TEST(Report, writesFilesAndNamesThem)
{
    const TimeZone here("UTC");
    for (const Person& person : {Person(), personWithAYear()}) {
        for (const ExportCase& each : exportCases) {
            SCOPED_TRACE(each.option);
            const TemporaryDirectory place;
            const fs::path file = place.path() / "made";
            const Ending ending = person.types({"report", each.option, file.string()});
            EXPECT_EQ(ending.code, ExitCode::done);
            EXPECT_EQ(ending.out, std::string("The ") + each.name + " is in " + file.string() + ".\n");
            EXPECT_TRUE(textOf(file).starts_with(each.begins));
            EXPECT_EQ(place.names(), Words{"made"});
            EXPECT_EQ(person.types({"report", each.option, "-"}).out, textOf(file));
        }
    }
}

TEST(Report, writesSeveralFilesAtOnce)
{
    const Person person = personWithAYear();
    const TemporaryDirectory place;
    const Words files = {(place.path() / "a").string(), (place.path() / "b").string(),
                         (place.path() / "c").string()};
    const Ending ending =
        person.types({"report", "--html", files[0], "--csv", files[1], "--ics", files[2], "--json"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out, person.types({"report", "--json"}).out);
    EXPECT_EQ(place.names(), (Words{"a", "b", "c"}));
}

TEST(Report, tellsAllBlocksOnAPageOnlyWhenAsked)
{
    const Person person = personWithAYear();
    const std::string page = person.types({"report", "--html", "-"}).out;
    EXPECT_NE(page.find("more before these; quillmere report --html FILE --all"), std::string::npos);
    const std::string whole = person.types({"report", "--html", "-", "--all"}).out;
    EXPECT_EQ(whole.find("more before these"), std::string::npos);
    EXPECT_GT(whole.size(), page.size());
}

TEST(Report, makesAPageForSomebodyElse)
{
    Person person;
    person.has(fullState());
    const Ending page = person.types({"report", "--html", "-", "--without", "texts", "--without", "ratings"});
    EXPECT_EQ(page.code, ExitCode::done);
    EXPECT_NE(page.out.find("This page leaves out texts and ratings."), std::string::npos);
    for (const Words& wrong :
         {Words{"report", "--without", "texts"}, Words{"report", "--csv", "-", "--without", "texts"},
          Words{"report", "--html", "-", "--csv", "f", "--without", "texts"},
          Words{"report", "--html", "-", "--without", "names"}}) {
        const Ending ending = person.types(wrong);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_NE(ending.err.find("--without"), std::string::npos) << ending.err;
    }
}

TEST(Report, namesFilesOnStandardErrorWhenItPrintsAnExport)
{
    const Person person = personWithAYear();
    const TemporaryDirectory place;
    const std::string page = (place.path() / "a").string();
    const std::string calendar = (place.path() / "b").string();
    const Ending ending = person.types({"report", "--html", page, "--csv", "-", "--ics", calendar});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out, person.types({"report", "--csv", "-"}).out);
    EXPECT_EQ(ending.err, "The page is in " + page + ".\nThe calendar is in " + calendar + ".\n");
    EXPECT_EQ(place.names(), (Words{"a", "b"}));
}

TEST(Report, refusesOneFileForTwoExports)
{
    const Person person = personWithAYear();
    const TemporaryDirectory place;
    const fs::path file = place.path() / "a";
    fs::create_symlink("a", place.path() / "link");
    for (const fs::path& same : {file, place.path() / "link"}) {
        SCOPED_TRACE(same);
        const Ending ending = person.types({"report", "--html", file.string(), "--ics", same.string()});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, "--ics: is the same file as that of --html; name another\n");
        EXPECT_FALSE(fs::exists(file));
    }
}

TEST(Report, refusesTwoResultsOnStandardOutput)
{
    const Person person = personWithAYear();
    for (const Words& words :
         {Words{"report", "--html", "-", "--csv", "-"}, Words{"report", "--ics", "-", "--json"}}) {
        const Ending ending = person.types(words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.out, "");
    }
}

TEST(Report, sanitizesExportsOnATerminal)
{
    Person person;
    person.has(hostileState());
    person.seesColour = true;
    for (const ExportCase& each : exportCases) {
        const std::string out = person.types({"report", each.option, "-"}).out;
        EXPECT_TRUE(std::none_of(out.begin(), out.end(), [](char character) {
            return static_cast<unsigned char>(character) < 0x20 && character != '\n';
        })) << each.option;
        EXPECT_EQ(out.find("\u202E"), std::string::npos);
        EXPECT_NE(out.find("It"), std::string::npos);
    }
}

struct Refusal {
    Words words;
    const char* message;
};

TEST(Report, refusesInvalidDays)
{
    const TimeZone here("UTC");
    const Person person;
    for (const Refusal& each : {
             Refusal{
                 {"report", "last", "year"},
                 "\"last year\" is no day or span, such as today, yesterday, monday, week, last week, month, "
                 "7d, 2026-10 or 2026-10-05.\n"},
             Refusal{
                 {"report", "--since", "soon"},
                 "--since: \"soon\" is no day or span, such as today, yesterday, monday, week, last week, "
                 "month, 7d, 2026-10 or 2026-10-05.\n"},
             Refusal{
                 {"report", "--until", "2026-02-30"},
                 "--until: \"2026-02-30\" is no day or span, such as today, yesterday, monday, week, last "
                 "week, month, 7d, 2026-10 or 2026-10-05.\n"},
             Refusal{{"report", "--since", "today", "--until", "yesterday"},
                     "--since: is later than --until\n"},
             Refusal{{"report", "week", "--since", "today"},
                     "span excludes --since (quillmere report --help)\n"},
             Refusal{{"report", "--html="}, "--html: is empty (quillmere report --help)\n"},
         }) {
        const Ending ending = person.types(each.words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, each.message);
        EXPECT_EQ(ending.out, "");
    }
}

struct ReportedSpan {
    Words words;
    const char* range;
};

TEST(Report, looksBackOnASpanAndSaysWhichDaysItHas)
{
    const TimeZone here("UTC");
    const Person person = personWithAYear();
    for (const ReportedSpan& each : {
             ReportedSpan{{"week"}, "2026-11-09 to 2026-11-15"},
             ReportedSpan{{"last", "week"}, "2026-11-02 to 2026-11-08"},
             ReportedSpan{{"Last week"}, "2026-11-02 to 2026-11-08"},
             ReportedSpan{{"7d"}, "2026-11-09 to 2026-11-15"},
             ReportedSpan{{"2026-10"}, "2026-10-01 to 2026-10-31"},
             ReportedSpan{{"2026-10-05"}, "2026-10-05"},
             ReportedSpan{{"--since", "monday"}, "2026-11-09 to 2026-11-15"},
             ReportedSpan{{"--since", "last month", "--until", "last week"}, "2026-10-01 to 2026-11-08"},
             ReportedSpan{{"--until", "2026-10"}, "up to 2026-10-31"},
         }) {
        Words words = {"report"};
        words.insert(words.end(), each.words.begin(), each.words.end());
        const std::string heading = std::string("Look back  ") + each.range + "\n";
        EXPECT_EQ(person.types(words).out.substr(0, heading.size()), heading);
    }
    EXPECT_EQ(person.types({"report", "2024-02"}).out,
              "No focus session has ended in that time, 2024-02-01 to 2024-02-29.\n");
}

TEST(Report, namesTheDaysOfAnExportedSpan)
{
    const TimeZone here("UTC");
    const TemporaryDirectory place;
    const std::string file = (place.path() / "a").string();
    EXPECT_EQ(personWithAYear().types({"report", "last", "week", "--csv", file}).out,
              "The table of 2026-11-02 to 2026-11-08 is in " + file + ".\n");
}

TEST(Report, takesDaysOfTheLocalTimeZone)
{
    // There it is already the 16th.
    const TimeZone here("Pacific/Kiritimati");
    const Person person;
    person.has(stateWith({session(moment, 60)}));
    EXPECT_EQ(jsonAt("/total/sessions", person.types({"report", "--json", "--since", "today"}).out), "1");
    EXPECT_EQ(jsonAt("/total/sessions", person.types({"report", "--json", "--until", "yesterday"}).out), "0");
    EXPECT_EQ(jsonAt("/days/0/day", person.types({"report", "--json"}).out), "\"2026-11-16\"");
}

TEST(Report, countsASessionWhoseTimeRanOutAndSavesNothing)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 100'000;
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(jsonAt("/total/focus_seconds", person.types({"report", "--json"}).out), "1500");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Report, neverReplacesTheFilesOfItsDirectory)
{
    const Person person = personWithAYear();
    const TemporaryDirectory place;
    fs::create_symlink(person.store().stateURL(), place.path() / "link");
    const auto before = pictureOf(person.directory());
    for (const fs::path& file :
         {person.store().stateURL(), person.directory() / "new.html", place.path() / "link"}) {
        SCOPED_TRACE(file);
        const Ending ending = person.types({"report", "--html", file.string()});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err,
                  file.string() + " lies where Quillmere keeps its own files; choose another place.\n");
    }
    EXPECT_TRUE(pictureOf(person.directory()) == before);
}

TEST(Report, neverReplacesOtherFilesOfQuillmere)
{
    const Person person = personWithAYear();
    EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::done);
    const TemporaryDirectory data;
    const EnvironmentVariable variable("XDG_DATA_HOME", data.path().string());
    const EnvironmentVariable home("HOME", data.path().string());
    EXPECT_EQ(person.runs({"ask", "Why?"}).code, ExitCode::done);
    const auto shared = FileManager::standard().containerDirectory(QuillmereAppGroup::identifier);
    ASSERT_TRUE(shared);
    std::vector<fs::path> files = {StateStore::defaultDirectory(FileManager::standard()) / "state.json",
                                   *shared / "new.html", person.stateHome() / "quillmere" / "new.html"};
    for (const fs::path& each : fs::recursive_directory_iterator(person.stateHome() / "quillmere")) {
        files.push_back(each / "new.html");
    }
    EXPECT_GE(files.size(), 5u);
    const auto before = pictureOf(data.path());
    const auto keptBefore = pictureOf(person.stateHome());
    for (const fs::path& file : files) {
        SCOPED_TRACE(file);
        const Ending ending = person.types({"report", "--csv", file.string()});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err,
                  file.string() + " lies where Quillmere keeps its own files; choose another place.\n");
    }
    EXPECT_TRUE(pictureOf(data.path()) == before);
    EXPECT_TRUE(pictureOf(person.stateHome()) == keptBefore);
}

TEST(Report, refusesOpenFiles)
{
    const Ending ending = personWithAYear().types({"report", "--csv", "/dev/stdout"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err, "/dev/stdout is an open file of a program; - is standard output.\n");
    EXPECT_EQ(ending.out, "");
}

TEST(Report, saysWhyAFileCannotBeWritten)
{
    const Person person = personWithAYear();
    const TemporaryDirectory place;
    const std::string file = (place.path() / "missing" / "a").string();
    const Ending ending = person.types({"report", "--html", file});
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_EQ(ending.err, "write: No such file or directory: " + file + "\n");
    const Ending isDirectory = person.types({"report", "--html", place.path().string()});
    EXPECT_EQ(isDirectory.code, ExitCode::fileError);
    EXPECT_EQ(isDirectory.err, place.path().string() + " is not a regular file (- is standard output).\n");
    EXPECT_EQ(place.names(), Words{});
}

TEST(Report, fitsTheTerminalAndNothingElse)
{
    Person person = personWithAYear();
    const auto reportAt = [&](const char* width) {
        const EnvironmentVariable columns("COLUMNS", width);
        return person.types({"report"}).out;
    };
    EXPECT_EQ(reportAt("60"), reportAt("100"));
    person.seesColour = true;
    EXPECT_NE(reportAt("60"), reportAt("100"));
}

}  // namespace
}  // namespace quillmere::test
