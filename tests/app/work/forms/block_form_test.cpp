// The form of a block.
#include "config/keys.hpp"
#include "program_testing.hpp"
#include "work/fields/fields.hpp"
#include "work/fields/unacceptable.hpp"
#include "work/forms/form_testing.hpp"

#include <quillmere/engine/workflow_error.hpp>

namespace quillmere::test {
namespace {

using namespace work;

/// A block in planning: a new block, or a scheduled one.
class BlockForm : public testing::Test {
protected:
    const TimeZone utc{"UTC"};
    QuillmereState state = stateIn(WorkflowState::blockPlanning);

    Form form() const { return formOf(state); }
    void takeScheduledBlock()
    {
        state = stateWithScheduledBlock();
        state.workflowState = WorkflowState::blockPlanning;
    }
};

TEST_F(BlockForm, beginsABlockWithEverythingThatWasFilledIn)
{
    Form filled = form();
    fillList(filled, "outcome", {"One", "Two", ""});
    fill(filled, "why", "Because\nit matters");
    fill(filled, "focus", "50m");
    fill(filled, "break", "10m");
    fill(filled, "cycles", "2");
    EXPECT_EQ(moveOf(filled, state), Move(Step::startBlock));
    carryOut(filled, state, moment);
    ASSERT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    const Block& block = *state.currentBlock;
    ASSERT_EQ(block.outcomes.size(), 2U);
    EXPECT_EQ(block.outcomes[1].title, "Two");
    EXPECT_EQ(block.whyValue, "Because\nit matters");
    EXPECT_EQ(block.focusDurationSeconds, 3000);
    EXPECT_EQ(block.breakDurationSeconds, 600);
    EXPECT_EQ(block.cycleCount, 2);
    EXPECT_FALSE(block.plannedStart);
}

TEST_F(BlockForm, beginsABlockWithTheLengthsOfTheConfiguration)
{
    config::Values values;
    values.focusSeconds = 3000;
    values.cycleCount = 3;
    const Form shown = formFor(subjectFor(state).value(), state, moment, values);
    EXPECT_EQ(shown.text("focus"), "50m");
    EXPECT_EQ(shown.text("cycles"), "3");
    carryOut(shown, state, moment);
    EXPECT_EQ(state.currentBlock->focusDurationSeconds, 3000);
    EXPECT_EQ(state.currentBlock->cycleCount, 3);
}

TEST(BlockFields, areTheKeysOfATemplate)
{
    std::vector<std::string_view> names;
    for (const auto& key : config::templateKeys) {
        names.push_back(key.name);
    }
    names.push_back("at");  // a template has no time
    std::vector<std::string_view> fields;
    for (const RecordField<Block>& field : blockFields) {
        fields.push_back(field.prompt.name);
    }
    EXPECT_EQ(names, fields);
}

TEST_F(BlockForm, schedulesABlockThatHasAPlannedStart)
{
    Form filled = form();
    fill(filled, "at", "+1h");
    EXPECT_EQ(moveOf(filled, state), Move(Step::scheduleBlock));
    carryOut(filled, state, moment);
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    EXPECT_EQ(state.currentBlock->plannedStart, moment + 3600);
}

TEST_F(BlockForm, changesNothingThatWasLeftAlone)
{
    takeScheduledBlock();
    // More digits than a form shows.
    state.currentBlock->plannedStart = moment + 3600.25;
    state.currentBlock->focusDurationSeconds = 1500.5;
    const Block before = *state.currentBlock;
    carryOut(form(), state, moment);
    EXPECT_EQ(*state.currentBlock, before);
}

config::Values valuesWith(base::Hours hours)
{
    config::Values values;
    values.hours = hours;
    return values;
}

/// The times of a day that are easily mistaken on a clock with twelve hours, after `moment`.
const std::pair<double, const char*> besideNoonAndMidnight[] = {
    {9 * 3600 - 60, "2026-11-15 11:59 pm"}, {9 * 3600, "2026-11-16 12:00 am"},
    {9 * 3600 + 60, "2026-11-16 12:01 am"}, {21 * 3600 - 60, "2026-11-16 11:59 am"},
    {21 * 3600, "2026-11-16 12:00 pm"},     {21 * 3600 + 60, "2026-11-16 12:01 pm"},
};

TEST_F(BlockForm, changesNothingThatWasLeftAloneOnAClockWithTwelveHours)
{
    for (const auto& [seconds, text] : besideNoonAndMidnight) {
        takeScheduledBlock();
        state.currentBlock->plannedStart = moment + seconds + 0.25;
        const Block before = *state.currentBlock;
        const Form shown = formFor(*subjectFor(state), state, moment, valuesWith(base::Hours::twelve));
        EXPECT_EQ(shown.text("at"), text);
        carryOut(shown, state, moment);
        EXPECT_EQ(*state.currentBlock, before) << text;
    }
}

TEST_F(BlockForm, readsTheTimeThatItShows)
{
    for (const base::Hours hours : {base::Hours::twelve, base::Hours::twentyFour}) {
        for (const auto& [seconds, text] : besideNoonAndMidnight) {
            takeScheduledBlock();
            state.currentBlock->plannedStart = moment + seconds;
            const Form shown = formFor(*subjectFor(state), state, moment, valuesWith(hours));
            // Another program gives the block another time; the form is saved over it.
            state.currentBlock->plannedStart = moment + 7;
            carryOut(shown, state, moment);
            EXPECT_EQ(state.currentBlock->plannedStart, moment + seconds) << shown.text("at");
        }
    }
}

TEST_F(BlockForm, refusesATimeOnTheClockOfThePerson)
{
    Form filled = formFor(*subjectFor(state), state, moment, valuesWith(base::Hours::twelve));
    fill(filled, "at", "2026-11-15 14:00");
    try {
        carryOut(filled, state, moment);
        ADD_FAILURE();
    } catch (const Unacceptable& slip) {
        EXPECT_STREQ(slip.what(),
                     "The time to begin, 2026-11-15 2:00 pm, has passed; name a later time, or begin "
                     "now.");
    }
}

TEST_F(BlockForm, keepsTheIdentityOfOutcomes)
{
    takeScheduledBlock();
    const std::vector<Outcome> before = state.currentBlock->outcomes;
    Form filled = form();
    std::vector<ListItem> items = std::get<std::vector<ListItem>>(filled.field("outcome").value);
    items[0].text = "Renamed";
    filled.setValue(filled.indexOf("outcome").value(), items);
    carryOut(filled, state, moment);
    EXPECT_EQ(state.currentBlock->outcomes[0].id, before[0].id);
    EXPECT_EQ(state.currentBlock->outcomes[0].title, "Renamed");
    EXPECT_EQ(state.currentBlock->outcomes[1], before[1]);
}

TEST_F(BlockForm, namesTheFieldWhoseValueCannotBeUsed)
{
    const std::pair<const char*, const char*> slips[] = {
        {"focus", "soon"}, {"break", "0"},     {"cycles", "many"},         {"cycles", "1001"},
        {"cycles", "3x"},  {"at", "whenever"}, {"at", "2001-01-01 09:00"},
    };
    const QuillmereState before = state;
    for (const auto& [field, text] : slips) {
        Form filled = form();
        fill(filled, field, text);
        try {
            carryOut(filled, state, moment);
            ADD_FAILURE() << field << ": " << text;
        } catch (const Unacceptable& slip) {
            EXPECT_EQ(slip.field(), field);
        }
    }
    EXPECT_EQ(state, before);
}

TEST_F(BlockForm, beginsABlockNowWhenTheTimeIsRemoved)
{
    takeScheduledBlock();
    Form filled = form();
    fill(filled, "at", "");
    carryOut(filled, state, moment);
    EXPECT_FALSE(state.currentBlock->plannedStart);
    EXPECT_EQ(state.workflowState, WorkflowState::sessionPlanning);
}

TEST_F(BlockForm, leavesItToTheEngineToRefuseNoCycles)
{
    Form filled = form();
    fill(filled, "cycles", "0");
    EXPECT_THROW(carryOut(filled, state, moment), WorkflowError);
}

}  // namespace
}  // namespace quillmere::test
