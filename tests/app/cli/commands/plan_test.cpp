// Planning a block.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

/// The block in hand after a command that must succeed.
Block blockAfter(const Person& person, const Words& words)
{
    const Ending ending = person.types(words);
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    const QuillmereState state = person.state();
    EXPECT_TRUE(state.currentBlock);
    return state.currentBlock.value_or(sampleBlock(99));
}

TEST(Plan, startsAUsualBlockWhenNothingElseIsSaid)
{
    const Person person;
    const Block block = blockAfter(person, {"plan", "--start"});
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(block.focusDurationSeconds, 1500);
    EXPECT_EQ(block.breakDurationSeconds, 300);
    EXPECT_EQ(block.cycleCount, 8);
    EXPECT_EQ(block.createdAt, moment);
    EXPECT_EQ(block.plannedStart, std::nullopt);
    ASSERT_EQ(block.outcomes.size(), 1u);
    EXPECT_EQ(block.outcomes[0].title, "");
    EXPECT_EQ(block.whyValue + block.doneTest + block.hazards + block.measurableCheck + block.contextNotes,
              "");
}

struct DurationText {
    const char* text;
    double seconds;
};

constexpr DurationText acceptedDurations[] = {
    {"1s", 1}, {"90s", 90}, {"25", 1500}, {"1h30m", 5400}, {"366d", 31'622'400},
};

TEST(Plan, takesDurationsFromOneSecondTo366Days)
{
    for (const DurationText& duration : acceptedDurations) {
        SCOPED_TRACE(duration.text);
        const Person person;
        const Block block =
            blockAfter(person, {"plan", "--focus", duration.text, "--break", duration.text, "--start"});
        EXPECT_EQ(block.focusDurationSeconds, duration.seconds);
        EXPECT_EQ(block.breakDurationSeconds, duration.seconds);
    }
}

constexpr const char* refusedDurations[] = {"0",
                                            "0s",
                                            "-5",
                                            "366d1s",
                                            "367d",
                                            "1e300",
                                            "inf",
                                            "nan",
                                            "",
                                            "5 m",
                                            "m",
                                            "1.5h",
                                            "99999999999999999999d"};

TEST(Plan, refusesOtherDurations)
{
    for (const char* duration : refusedDurations) {
        for (const char* option : {"--focus", "--break"}) {
            SCOPED_TRACE(std::string(option) + " " + duration);
            const Person person;
            const Ending ending = person.types({"plan", option, duration, "--start"});
            EXPECT_EQ(ending.code, ExitCode::usage);
            EXPECT_EQ(ending.err, std::string(option) + ": \"" + duration +
                                      "\" is no duration from 1 second to 366 days, such as 25m or 1h30m.\n");
            EXPECT_EQ(person.names(), Words{});
        }
    }
}

TEST(Plan, takesAThousandCyclesAtMost)
{
    const Person person;
    EXPECT_EQ(person.types({"plan", "--cycles", "1001", "--start"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"plan", "--cycles", "9223372036854775807", "--start"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"plan", "--cycles", "9223372036854775808", "--start"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"plan", "--cycles", "many", "--start"}).code, ExitCode::usage);
    EXPECT_EQ(person.names(), Words{});
    EXPECT_EQ(blockAfter(person, {"plan", "--cycles", "1000", "--start"}).cycleCount, 1000);
}

TEST(Plan, readsNumbersInDecimal)
{
    const Person person;
    EXPECT_EQ(blockAfter(person, {"plan", "--cycles", "010", "--start"}).cycleCount, 10);
    EXPECT_EQ(person.types({"plan", "--cycles", "0x10", "--start"}).code, ExitCode::usage);
}

TEST(Plan, leavesItToTheEngineToRefuseNoCycles)
{
    for (const char* cycles : {"0", "-1", "-9223372036854775808"}) {
        const Person person;
        const Ending ending = person.types({"plan", "--cycles", cycles, "--start"});
        EXPECT_EQ(ending.code, ExitCode::refused);
        EXPECT_EQ(ending.err, "Durations and the cycle count must be greater than zero.\n");
        EXPECT_EQ(person.names(), Words{});
    }
}

TEST(Plan, saysWhetherToBeginNowOrLater)
{
    const Person person;
    const Ending ending = person.types({"plan", "--outcome", "Chapter"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err, "Say --start to begin now, or --at TIME to begin later.\n");
    EXPECT_EQ(person.types({"plan", "--start", "--at", "+1h"}).code, ExitCode::usage);
    EXPECT_EQ(person.names(), Words{});
}

struct TimeText {
    const char* text;
    double secondsFromMoment;
    const char* inFull;
};

// The clock shows 16:00 at the moment, on 15 November.
constexpr TimeText acceptedTimes[] = {
    {"+90s", 90, "Sun 15 Nov 2026, 16:01"},
    {"in 1h", 3600, "Sun 15 Nov 2026, 17:00"},
    {"16:30", 1800, "Sun 15 Nov 2026, 16:30"},
    {"15:30", 84'600, "Mon 16 Nov 2026, 15:30"},
    {"16:00", 0, "Sun 15 Nov 2026, 16:00"},
    {"9am", 61'200, "Mon 16 Nov 2026, 09:00"},
    {"mon 14:00", 79'200, "Mon 16 Nov 2026, 14:00"},
    {"2026-11-16 08:15", 58'500, "Mon 16 Nov 2026, 08:15"},
    {"2026-11-16T08:15", 58'500, "Mon 16 Nov 2026, 08:15"},
};

TEST(Plan, schedulesABlockForALocalTime)
{
    const TimeZone here("Europe/Berlin");
    for (const TimeText& time : acceptedTimes) {
        SCOPED_TRACE(time.text);
        const Person person;
        const Ending ending = person.types({"plan", "--at", time.text});
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_TRUE(ending.out.starts_with(std::string("Scheduled for ") + time.inFull + ".\n\n"))
            << ending.out;
        const QuillmereState state = person.state();
        EXPECT_EQ(state.workflowState, WorkflowState::idle);
        ASSERT_TRUE(state.currentBlock);
        EXPECT_EQ(state.currentBlock->plannedStart, moment + time.secondsFromMoment);
    }
}

TEST(Plan, saysWhatAChangeOfTheClocksMakesOfATime)
{
    const TimeZone here("Europe/Berlin");
    const Person skipped;
    EXPECT_TRUE(
        skipped.types({"plan", "--at", "2027-03-28 02:30"})
            .out.starts_with("Scheduled for Sun 28 Mar 2027, 03:30 (the clocks are set forward that day, and "
                             "02:30 is left out).\n\n"));
    const Person doubled;
    EXPECT_TRUE(doubled.types({"plan", "--at", "2027-10-31 2:30am"})
                    .out.starts_with(
                        "Scheduled for Sun 31 Oct 2027, 02:30 (the first of two: the clocks are set back "
                        "that day).\n\n"));
}

constexpr const char* refusedTimes[] = {"noon",  "25:00", "2026-02-30 10:00", "2026-11-15", "+", "+0s",
                                        "+367d", "-1h",   "16:00:00 and more"};

TEST(Plan, refusesOtherTimes)
{
    for (const char* time : refusedTimes) {
        SCOPED_TRACE(time);
        const Person person;
        const Ending ending = person.types({"plan", "--at", time});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(
            ending.err,
            std::string("--at: \"") + time +
                "\" is no local time, such as 14:30, 9am, tomorrow 9:00, mon 14:00, 2026-11-15 09:00 or "
                "in 20m.\n");
        EXPECT_EQ(person.names(), Words{});
    }
}

TEST(Plan, saysWhatATimeIsWhenNoneIsGiven)
{
    EXPECT_EQ(Person().types({"plan", "--at", ""}).err,
              "--at: Give a local time, such as 14:30, 9am, tomorrow 9:00, mon 14:00, 2026-11-15 09:00 or in "
              "20m.\n");
}

struct TimeElsewhere {
    const char* zone;
    const char* text;
};

// Before the first and after the last instant that a file can name.
constexpr TimeElsewhere timesOutsideOfAllYears[] = {
    {"America/New_York", "9999-12-31 23:59"},
    {"Europe/Berlin", "0000-01-01 00:00"},
};

TEST(Plan, refusesATimeThatNoFileCanName)
{
    for (const TimeElsewhere& time : timesOutsideOfAllYears) {
        SCOPED_TRACE(time.text);
        const TimeZone here(time.zone);
        const Person person;
        const Ending ending = person.types({"plan", "--at", time.text});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(
            ending.err,
            "--at: \"" + std::string(time.text) +
                "\" is no local time, such as 14:30, 9am, tomorrow 9:00, mon 14:00, 2026-11-15 09:00 or "
                "in 20m.\n");
        EXPECT_EQ(person.names(), Words{});
    }
}

constexpr const char* passedTimes[] = {"2026-11-01 00:00", "2026-11-15 15:59", "1969-12-31 23:59"};

TEST(Plan, refusesATimeThatHasPassed)
{
    const TimeZone here("Europe/Berlin");
    for (const char* time : passedTimes) {
        SCOPED_TRACE(time);
        const Person person;
        const Ending ending = person.types({"plan", "--at", time});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, "--at: The time to begin, " + std::string(time) +
                                  ", has passed; name a later time, or begin now.\n");
        EXPECT_EQ(person.names(), Words{});
    }
}

constexpr const char* bracketed[] = {"[draft]", "[a,b]", "[]", "{}", "{a}", "%%", "a,b", "", "'quoted'"};

TEST(Plan, keepsOutcomesAsTheyAreTyped)
{
    for (const char* outcome : bracketed) {
        SCOPED_TRACE(outcome);
        const Person person;
        const Block block = blockAfter(person, {"plan", "--outcome", outcome, "--why", outcome, "--start"});
        ASSERT_EQ(block.outcomes.size(), 1u);
        EXPECT_EQ(block.outcomes[0].title, outcome);
        EXPECT_EQ(block.whyValue, outcome);
    }
}

TEST(Plan, takesOneOutcomeAnOption)
{
    // Without quotes these are three words of one outcome, not three outcomes.
    const Person person;
    const Ending ending = person.types({"plan", "--outcome", "Write", "the", "report", "--start"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(person.names(), Words{});
}

TEST(Plan, keepsWhatAScheduledBlockHadAndWasNotSaidAnew)
{
    const Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    Block expected = *state.currentBlock;
    expected.whyValue = "Another reason";
    expected.cycleCount = 5;
    expected.plannedStart.reset();
    EXPECT_EQ(blockAfter(person, {"plan", "--why", "Another reason", "--cycles", "5", "--start"}), expected);
}

TEST(Plan, replacesTheOutcomesWhenSomeAreGiven)
{
    const Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    const Block block = blockAfter(person, {"plan", "--outcome", "Chapter three", "--at", "+1h"});
    ASSERT_EQ(block.outcomes.size(), 1u);
    EXPECT_EQ(block.outcomes[0].title, "Chapter three");
    EXPECT_EQ(block.plannedStart, moment + 3600);
}

Person personWithTwoFinishedBlocks()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::idle);
    state.blockHistory = {blockInWork(1, 3), blockInWork(2, 1)};
    state.blockHistory[1].id = *Identifier::fromText("ABCD0000-0000-4000-8000-000000000001");
    state.blockHistory[0].plannedStart = moment - 3600;
    state.blockHistory[0].outcomes[0].title = "The last one";
    state.blockHistory[1].focusDurationSeconds = 3000.5;
    person.has(state);
    return person;
}

TEST(PlanLike, takesTheWordsAndLengthsOfAFinishedBlock)
{
    for (const auto& [name, place] : {std::pair{"last", 0u}, std::pair{"9f1c", 0u}, std::pair{"ABCD", 1u}}) {
        SCOPED_TRACE(name);
        const Person person = personWithTwoFinishedBlocks();
        const Block model = person.state().blockHistory[place];
        EXPECT_EQ(person.types({"plan", "--like", name, "--start"}).code, ExitCode::done);
        Block block = *person.state().currentBlock;
        EXPECT_NE(block.id, model.id);
        EXPECT_EQ(block.createdAt, moment);
        EXPECT_EQ(block.plannedStart, std::nullopt);
        EXPECT_TRUE(block.sessions.empty());
        EXPECT_EQ(block.completedAt, std::nullopt);
        ASSERT_EQ(block.outcomes.size(), model.outcomes.size());
        for (std::size_t index = 0; index < block.outcomes.size(); ++index) {
            EXPECT_NE(block.outcomes[index].id, model.outcomes[index].id);
            EXPECT_EQ(block.outcomes[index].title, model.outcomes[index].title);
        }
        Block expected = model;
        expected.id = block.id;
        expected.createdAt = block.createdAt;
        expected.plannedStart.reset();
        expected.sessions.clear();
        expected.outcomes = block.outcomes;
        EXPECT_EQ(block, expected);
    }
}

TEST(PlanLike, givesWayToOptionsAndTakesATime)
{
    const TimeZone here("UTC");
    const Person person = personWithTwoFinishedBlocks();
    EXPECT_EQ(
        person.types({"plan", "--like", "last", "--why", "Another reason", "--focus", "40m", "--at", "+1h"})
            .code,
        ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->whyValue, "Another reason");
    EXPECT_EQ(person.state().currentBlock->focusDurationSeconds, 2400);
    EXPECT_EQ(person.state().currentBlock->doneTest, person.state().blockHistory[0].doneTest);
    EXPECT_EQ(person.state().currentBlock->plannedStart, moment + 3600);
}

TEST(PlanLike, keepsTheBlockThatIsBeingEdited)
{
    const Person person = personWithTwoFinishedBlocks();
    QuillmereState state = person.state();
    state.currentBlock = stateWithScheduledBlock().currentBlock;
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    EXPECT_EQ(person.types({"plan", "--like", "last", "--at", "+2h"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->id, state.currentBlock->id);
    EXPECT_EQ(person.state().currentBlock->createdAt, state.currentBlock->createdAt);
    EXPECT_EQ(person.state().currentBlock->outcomes[0].title, "The last one");
}

TEST(PlanLike, saysWhichBlocksThereAre)
{
    const Person person = personWithTwoFinishedBlocks();
    EXPECT_EQ(person.types({"plan", "--like", "FFFF", "--start"}).err,
              "No block is called \"FFFF\"; see quillmere history.\n");
    EXPECT_EQ(person.types({"plan", "--like", "9F", "--start"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"plan", "--like", "last", "--draft", "--start"}).code, ExitCode::usage);
    EXPECT_EQ(Person().types({"plan", "--like", "last", "--start"}).err, "No block is finished yet.\n");
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
}

}  // namespace
}  // namespace quillmere::test
