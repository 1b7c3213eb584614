// The block that planning begins with.
#include "config/new_block.hpp"

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::config {
namespace {

using test::moment;

/// Everything but the identifiers, which are random.
void expectEqualButForIdentifiers(Block block, const Block& expected)
{
    ASSERT_EQ(block.outcomes.size(), expected.outcomes.size());
    block.id = expected.id;
    for (std::size_t index = 0; index < block.outcomes.size(); ++index) {
        block.outcomes[index].id = expected.outcomes[index].id;
    }
    EXPECT_EQ(block, expected);
}

TEST(NewBlock, isTheLibrarysWhenNothingIsConfigured)
{
    expectEqualButForIdentifiers(newBlock({}, moment), Block::default_(moment));
}

TEST(NewBlock, hasTheConfiguredLengths)
{
    Values values;
    values.focusSeconds = 3000;
    values.breakSeconds = 600;
    values.cycleCount = 4;
    Block expected = Block::default_(moment);
    expected.focusDurationSeconds = 3000;
    expected.breakDurationSeconds = 600;
    expected.cycleCount = 4;
    expectEqualButForIdentifiers(newBlock(values, moment), expected);
}

TEST(NewBlock, keepsWhatATemplateLeavesOut)
{
    Values values;
    values.cycleCount = 4;
    Block expected = newBlock(values, moment);
    expected.whyValue = "The board meets";
    expected.focusDurationSeconds = 3000;
    expectEqualButForIdentifiers(
        newBlock(values, {.name = "report", .why = "The board meets", .focusSeconds = 3000}, moment),
        expected);
}

TEST(NewBlock, hasEveryFieldOfATemplate)
{
    const Template fields{.name = "report",
                          .outcomes = {"Figures", "Outline"},
                          .why = "why",
                          .doneTest = "done",
                          .hazards = "hazards",
                          .measurableCheck = "check",
                          .notes = "notes",
                          .focusSeconds = 3000,
                          .breakSeconds = 600,
                          .cycleCount = 3};
    Block expected = Block::default_(moment);
    expected.outcomes = {{.id = Identifier::random(), .title = "Figures"},
                         {.id = Identifier::random(), .title = "Outline"}};
    expected.whyValue = "why";
    expected.doneTest = "done";
    expected.hazards = "hazards";
    expected.measurableCheck = "check";
    expected.contextNotes = "notes";
    expected.focusDurationSeconds = 3000;
    expected.breakDurationSeconds = 600;
    expected.cycleCount = 3;
    expectEqualButForIdentifiers(newBlock({}, fields, moment), expected);
}

TEST(NewBlock, givesEachOutcomeAnIdentifierOfItsOwn)
{
    const Block block = newBlock({}, {.name = "report", .outcomes = {"Figures", "Outline"}}, moment);
    EXPECT_NE(block.outcomes[0].id, block.outcomes[1].id);
}

TEST(TemplateNamed, isFoundByItsWholeName)
{
    Values values;
    values.templates = {{.name = "report"}, {.name = "reports"}};
    EXPECT_EQ(templateNamed(values, "reports"), &values.templates[1]);
    EXPECT_EQ(templateNamed(values, "rep"), nullptr);
}

}  // namespace
}  // namespace quillmere::config
