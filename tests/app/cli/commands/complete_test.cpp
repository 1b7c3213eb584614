// The values that a shell may offer.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

/// Two finished blocks; the newer has an ended session and an unended one.
QuillmereState stateWithHistory()
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (const char* const start : {"AAAA", "BBBB"}) {
        Block block = blockInWork(1, 2);
        block.id = *Identifier::fromText(start + std::string("0000-0000-4000-8000-000000000000"));
        block.completedAt = moment - (state.blockHistory.empty() ? 0 : 40 * 86'400);
        state.blockHistory.push_back(block);
    }
    return state;
}

Person personWith(const QuillmereState& state)
{
    Person person;
    person.has(state);
    return person;
}

void configure(Person& person, const std::string& text)
{
    person.configDirectory = person.stateHome() / "configuration";
    std::filesystem::create_directories(person.configDirectory);
    std::ofstream(person.configDirectory / "config.toml") << text;
}

/// What the lines begin with, up to the tab.
Words valuesIn(const std::string& lines)
{
    std::istringstream stream(lines);
    Words values;
    for (std::string line; std::getline(stream, line);) {
        values.push_back(line.substr(0, line.find('\t')));
    }
    return values;
}

bool contains(const Words& words, const std::string& word)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

TEST(Complete, printsBlocksAsHistoryNamesThem)
{
    const TimeZone here("UTC");
    EXPECT_EQ(personWith(stateWithHistory()).types({"complete", "BLOCK"}).out,
              "AAAA\t2026-11-15 15:00  Chapter one\n"
              "BBBB\t2026-10-06 15:00  Chapter one\n");
}

TEST(Complete, printsSessionsThatHaveEndedBehindTheirBlock)
{
    const TimeZone here("UTC");
    QuillmereState state = stateWithHistory();
    state.blockHistory.pop_back();
    state.blockHistory[0].sessions[0].startedAt = moment - 3'600;
    state.blockHistory[0].sessions[0].plan.intendedOutcome = "Two pages";
    EXPECT_EQ(personWith(state).types({"complete", "RECORD"}).out,
              "AAAA\t2026-11-15 15:00  Chapter one\n"
              "AAAA.1\t2026-11-15 14:00  Two pages\n");
}

TEST(Complete, namesTheSessionsOfTheCurrentBlockByAPoint)
{
    EXPECT_EQ(valuesIn(personWith(stateIn(WorkflowState::sessionReview)).types({"complete", "RECORD"}).out),
              (Words{".1"}));
}

TEST(Complete, namesSessionsOfTheNewestTenBlocksOnly)
{
    QuillmereState state = stateWithHistory();
    state.blockHistory.resize(11, state.blockHistory.back());
    for (std::size_t index = 0; index < state.blockHistory.size(); ++index) {
        state.blockHistory[index].id =
            *Identifier::fromText(std::to_string(1'000 + index) + "0000-0000-4000-8000-000000000000");
    }
    const Words values = valuesIn(personWith(state).types({"complete", "RECORD"}).out);
    EXPECT_TRUE(contains(values, "1009.1"));
    EXPECT_TRUE(contains(values, "1010"));
    EXPECT_FALSE(contains(values, "1010.1"));
}

TEST(Complete, printsOpenQuestionsByNumberBeforeAnsweredOnesByName)
{
    const Person person;
    for (const char* const question : {"First?", "Second?", "Third?"}) {
        person.types({"ask", question});
    }
    person.types({"answer", "2", "Yes"});
    const std::string name = person.state().agentQuestions[1].id.text().substr(0, 4);
    EXPECT_EQ(person.types({"complete", "QUESTION"}).out,
              "1\tFirst?\n2\tThird?\n" + name + "\tanswered: Second?\n");
}

TEST(Complete, printsVersionsWithTheirTimesTheNewestFirst)
{
    const TimeZone here("UTC");
    Person person;
    person.types({"ask", "First?"});
    person.typesLater(60, {"ask", "Second?"});
    person.typesLater(60, {"ask", "Third?"});
    EXPECT_EQ(person.types({"complete", "VERSION"}).out,
              "2\t2026-11-15 15:01:00\n"
              "1\t2026-11-15 15:00:00\n");
}

TEST(Complete, printsTheLastBlockAndTemplatesBeforeBlocksAsModels)
{
    Person person = personWith(stateWithHistory());
    configure(person, "[template.report]\ncycles = 2\n[template.\"two words\"]\ncycles = 3\n");
    EXPECT_EQ(valuesIn(person.types({"complete", "MODEL"}).out),
              (Words{"last", "report", "two words", "AAAA", "BBBB"}));
    person.has(stateIn(WorkflowState::idle));
    EXPECT_EQ(valuesIn(person.types({"complete", "MODEL"}).out), (Words{"report", "two words"}));
}

TEST(Complete, printsSpansAndTheMonthsOfTheHistoryWithTheirDays)
{
    const TimeZone here("UTC");
    const std::string lines = personWith(stateWithHistory()).types({"complete", "SPAN"}).out;
    for (const char* const line :
         {"today\t2026-11-15\n", "last week\t2026-11-02 to 2026-11-08\n", "monday\t2026-11-09\n",
          "sunday\t2026-11-15\n", "7d\t2026-11-09 to 2026-11-15\n", "2026-11\t2026-11-01 to 2026-11-30\n",
          "2026-10\t2026-10-01 to 2026-10-31\n"}) {
        EXPECT_NE(lines.find(line), std::string::npos) << line << "is not in\n" << lines;
    }
}

TEST(Complete, printsCommandsWithTheirPurpose)
{
    const std::string lines = Person().types({"complete", "COMMAND"}).out;
    EXPECT_NE(lines.find("version\tPrint the version"), std::string::npos) << lines;
    EXPECT_TRUE(contains(valuesIn(lines), "break extend"));
}

TEST(Complete, printsTheKeysOfTheConfigurationWithTheirMeaning)
{
    const std::string lines = Person().types({"complete", "KEY"}).out;
    EXPECT_NE(lines.find("clock\tHow times of day are shown\n"), std::string::npos) << lines;
    EXPECT_TRUE(contains(valuesIn(lines), "block.focus"));
}

TEST(Complete, printsTheWordsThatMayFollowThoseThatAreTyped)
{
    const Person person;
    const Words first = valuesIn(person.types({"complete", "SPAN", "--word-by-word"}).out);
    EXPECT_EQ(std::count(first.begin(), first.end(), "last"), 1);
    EXPECT_EQ(valuesIn(person.types({"complete", "SPAN", "--word-by-word", "--", "last"}).out),
              (Words{"week", "month"}));
    EXPECT_EQ(valuesIn(person.types({"complete", "COMMAND", "--word-by-word", "--", "break"}).out),
              (Words{"extend", "end", "skip"}));
    EXPECT_EQ(person.types({"complete", "COMMAND", "--word-by-word", "--", "break", "end"}).out, "");
    EXPECT_EQ(person.types({"complete", "SPAN", "--word-by-word", "--", "--json"}).out, "");
}

TEST(Complete, describesInOneShortLineWithoutControlCharacters)
{
    QuillmereState state = stateWithHistory();
    state.blockHistory.pop_back();
    state.blockHistory[0].outcomes[0].title = "a\x1b[2J\tb\nc" + std::string(100, 'x');
    const std::string line = personWith(state).types({"complete", "BLOCK"}).out;
    EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
    EXPECT_EQ(std::count(line.begin(), line.end(), '\t'), 1);
    EXPECT_NE(line.find("a\uFFFD[2J b cxxx"), std::string::npos) << line;
    EXPECT_LT(line.size(), 80u);
}

TEST(Complete, leavesOutNamesThatCannotBeTypedAsTheyAreShown)
{
    Person person;
    configure(person, "[template.\"a\\u001b\"]\ncycles = 2\n[template.\"b\\tc\"]\ncycles = 2\n");
    EXPECT_EQ(person.types({"complete", "MODEL"}).out, "");
}

TEST(Complete, saysNothingWhereThereIsNothingToOffer)
{
    Person person;
    person.has(stateWithHistory());
    std::ofstream(person.store().stateURL()) << "no state";
    configure(person, "hours = 13");
    for (const char* const kind : {"BLOCK", "RECORD", "QUESTION", "MODEL", "SPAN", "VERSION", "DANCE"}) {
        SCOPED_TRACE(kind);
        const Ending ending = person.types({"complete", kind});
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_EQ(ending.out, "");
        EXPECT_EQ(ending.err, "");
    }
}

TEST(Complete, isInNoHelp)
{
    const Person person;
    EXPECT_EQ(person.types({"help"}).out.find("complete  "), std::string::npos);
    EXPECT_FALSE(contains(valuesIn(person.types({"complete", "COMMAND"}).out), "complete"));
}

}  // namespace
}  // namespace quillmere::test
