// The finished blocks.
#include "marked_block.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

/// Twelve finished blocks, the newest first, a day apart.
Person personWithHistory()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 12; number >= 1; --number) {
        Block block = blockInWork(number, 2);
        block.sessions[0].endedAt = block.sessions[0].startedAt + 1500;
        block.sessions[0].accumulatedPausedSeconds = 60;
        block.sessions[1].endedAt = block.sessions[1].startedAt + 45;
        block.outcomes[1].title = "Number " + std::to_string(number);
        block.reflection = sampleReflection();
        block.completedAt = moment + number * 86'400.0;
        state.blockHistory.push_back(block);
    }
    person.has(state);
    return person;
}

TEST(History, showsABlockWithItsTimeInFocusWithoutPauses)
{
    const TimeZone here("Europe/Berlin");
    EXPECT_EQ(personWithHistory().types({"history", "--limit", "1"}).out,
              "2026-11-27 16:00  9F1C2A4E-0B7D-4C55-8E21-000000000138  ½ ◐ ·  2 of 3 sessions, 24 min 45 s "
              "of focus\n"
              "  Chapter one\n"
              "    ½ 1  Outcome of session 1: Result 1\n"
              "    ◐ 2  Outcome of session 2\n"
              "  Number 12\n"
              "11 more; --limit 12 shows all\n");
}

TEST(History, ofOneBlockHasEveryWordOfIt)
{
    const Person person;
    QuillmereState state = stateIn(WorkflowState::idle);
    state.blockHistory = {markedBlock()};
    person.has(state);
    const std::string id = state.blockHistory.front().id.text();
    expectAll(markersOf(state.blockHistory.front()), person.types({"history", id}).out);
}

TEST(History, namesEachBlockByAsManyCharactersAsItTakes)
{
    const Person person = personWithHistory();
    QuillmereState state = person.state();
    state.blockHistory.resize(3, state.blockHistory[0]);
    for (std::size_t index = 0; const char* const start : {"AAAA0", "AAAA1", "BBBB0"}) {
        state.blockHistory[index++].id =
            *Identifier::fromText(start + std::string("000-0000-4000-8000-000000000000"));
    }
    person.has(state);
    const std::string all = person.types({"history"}).out;
    for (const char* const name : {"  AAAA0  ½", "  AAAA1  ½", "  BBBB  ½"}) {
        EXPECT_NE(all.find(name), std::string::npos) << all;
    }
}

TEST(History, showsWhatASessionWithoutAResultWasMeantToDo)
{
    const Person person = personWithHistory();
    QuillmereState state = person.state();
    state.blockHistory[0].sessions[0].review->noteworthyResult.clear();
    person.has(state);
    EXPECT_NE(person.types({"history"}).out.find("\n    ½ 1  Outcome of session 1\n"), std::string::npos);
}

TEST(History, printsHowManyMoreThereAre)
{
    const Person person = personWithHistory();
    const std::string more = "2 more; --limit 12 shows all\n";
    const std::string usual = person.types({"history"}).out;
    EXPECT_EQ(usual.substr(usual.size() - more.size()), more);
    EXPECT_EQ(person.types({"history", "--limit", "12"}).out.find(" more"), std::string::npos);
}

std::size_t occurrences(const std::string& part, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos;
         place = text.find(part, place + 1)) {
        ++count;
    }
    return count;
}

TEST(History, showsTheTenNewestByDefault)
{
    const Person person = personWithHistory();
    const std::string usual = person.types({"history"}).out;
    EXPECT_EQ(occurrences("Number ", usual), 10u);
    EXPECT_LT(usual.find("Number 12"), usual.find("Number 3"));
    EXPECT_EQ(occurrences("Number ", person.types({"history", "--limit", "11"}).out), 11u);
    EXPECT_EQ(occurrences("Number ", person.types({"history", "--limit", "9223372036854775807"}).out), 12u);
    EXPECT_EQ(person.types({"history", "--limit", "few"}).code, ExitCode::usage);
}

TEST(History, acceptsALimitFromOne)
{
    const Person person = personWithHistory();
    for (const std::string limit : {"0", "-1", "-9223372036854775808"}) {
        const Ending ending = person.types({"history", "--limit", limit});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, "--limit: is not between 1 and 9223372036854775807: " + limit +
                                  " (quillmere history --help)\n");
    }
}

TEST(History, showsAllBlocksThatWereFinishedInASpan)
{
    // The blocks are of 16 to 27 November.
    const TimeZone here("UTC");
    Person person = personWithHistory();
    person.now = moment + 12 * 86'400.0;
    const std::string week = person.types({"history", "last", "week"}).out;
    EXPECT_TRUE(week.starts_with("Finished 2026-11-16 to 2026-11-22:\n2026-11-22 15:00  ")) << week;
    EXPECT_EQ(occurrences("Number ", week), 7u);
    EXPECT_EQ(occurrences("Number ", person.types({"history", "month"}).out), 12u);
    EXPECT_TRUE(
        person.types({"history", "30d", "--limit", "5"}).out.ends_with("7 more; --limit 12 shows all\n"));
    EXPECT_EQ(jsonAt("/0/outcomes/1/title", person.types({"history", "2026-11-20", "--json"}).out),
              R"("Number 5")");
    EXPECT_EQ(person.types({"history", "2025-01"}).out,
              "No block was finished in that time, 2025-01-01 to 2025-01-31.\n");
    EXPECT_EQ(person.types({"history", "2025-01", "--json"}).out, "[]\n");
    EXPECT_EQ(person.types({"history", "someday"}).code, ExitCode::usage);
}

TEST(History, printsTheRecordsOfTheFileAsJson)
{
    const Person person = personWithHistory();
    const std::string all = person.types({"history", "--json", "--limit", "99"}).out;
    EXPECT_EQ(jsonAt("", all), jsonAt("/block_history", textOf(person.store().stateURL())));
    EXPECT_EQ(jsonAt("/0/outcomes/1/title", person.types({"--json", "history", "--limit", "1"}).out),
              R"("Number 12")");
}

TEST(History, saysThatNoBlockIsFinished)
{
    const Person person;
    EXPECT_EQ(person.types({"history"}).out, "No block is finished yet.\n");
    EXPECT_EQ(person.types({"history", "--json"}).out, "[]\n");
}

TEST(History, countsNoTimeOfASessionThatNeverEndedOrEndedBeforeItBegan)
{
    // After the clock was set back, or by another program.
    const TimeZone here("UTC");
    const Person person = personWithHistory();
    QuillmereState state = person.state();
    state.blockHistory[0].sessions[0].endedAt = state.blockHistory[0].sessions[0].startedAt - 500;
    state.blockHistory[0].sessions[1].endedAt.reset();
    person.has(state);
    const std::string list = person.types({"history", "--limit", "1"}).out;
    EXPECT_NE(list.find("  2 of 3 sessions, 0 s of focus\n"), std::string::npos) << list;
}

}  // namespace
}  // namespace quillmere::test
