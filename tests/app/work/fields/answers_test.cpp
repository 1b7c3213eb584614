#include "work/fields/answers.hpp"

#include "program_testing.hpp"
#include "work/fields/unacceptable.hpp"

#include <set>

namespace quillmere::test {
namespace {

using namespace work;

template <class Call>
std::string refusalOf(Call call)
{
    try {
        call();
    } catch (const Unacceptable& refusal) {
        return refusal.field() + ": " + refusal.what();
    }
    return "accepted";
}

template <class Record, std::size_t count>
void expectNamesAreUnique(const std::array<RecordField<Record>, count>& fields)
{
    std::set<std::string_view> names;
    for (const RecordField<Record>& field : fields) {
        EXPECT_TRUE(names.insert(field.prompt.name).second) << field.prompt.name;
    }
}

TEST(Fields, haveNamesThatAreUniqueInTheirRecord)
{
    expectNamesAreUnique(blockFields);
    expectNamesAreUnique(planFields);
    expectNamesAreUnique(reviewFields);
    expectNamesAreUnique(reflectionFields);
}

/// Reading what a member shows leaves the record as it is.
template <class Record, std::size_t count>
void expectRoundTrips(const std::array<RecordField<Record>, count>& fields, const Record& record)
{
    for (const RecordField<Record>& field : fields) {
        Record copy = record;
        setFrom(copy, field, "id", valueIn(record, field), moment);
        EXPECT_EQ(copy, record) << field.prompt.name;
    }
}

TEST(Fields, areReadBackFromTheirOwnValues)
{
    const TimeZone utc("UTC");
    Block block = sampleBlock(1);
    block.plannedStart = moment + 3600;
    expectRoundTrips(blockFields, block);
    expectRoundTrips(planFields, samplePlan(1));
    expectRoundTrips(reviewFields, sampleReview(1));
    expectRoundTrips(reflectionFields, BlockReview{.outputProduced = "A",
                                                   .normalComparison = "B",
                                                   .boggedDown = "C",
                                                   .wentWell = "D",
                                                   .lessons = "E"});
}

TEST(Answers, areDurationsInTheUsualNotation)
{
    EXPECT_EQ(durationFrom({"focus", "1h30m"}), 5400);
    EXPECT_EQ(refusalOf([] {
                  durationFrom({"focus", "soon"});
              }),
              "focus: \"soon\" is no duration from 1 second to 366 days, such as 25m or 1h30m.");
}

TEST(Answers, areWholeNumbersInDecimal)
{
    EXPECT_EQ(numberFrom({"cycles", "010"}, cycleLimits), 10);
    for (const char* text : {"", "many", "3x", "0x10", "1001", "9223372036854775808"}) {
        EXPECT_EQ(refusalOf([&] {
                      numberFrom({"cycles", text}, cycleLimits);
                  }),
                  "cycles: \"" + std::string(text) + "\" is no whole number from 1 to 1000.");
    }
}

TEST(Answers, passNumbersOnThatTheEngineRefuses)
{
    EXPECT_EQ(numberFrom({"cycles", "0"}, cycleLimits), 0);
    EXPECT_EQ(numberFrom({"energy", "9"}, ratingLimits), 9);
}

TEST(Answers, areCompletionsInUpperOrLowerCase)
{
    EXPECT_EQ(completionFrom({"completion", "YES"}), CompletionResult::yes);
    EXPECT_EQ(completionFrom({"completion", "half"}), CompletionResult::half);
    EXPECT_EQ(completionFrom({"completion", "N"}), CompletionResult::no);
    EXPECT_EQ(refusalOf([] {
                  completionFrom({"completion", "ye"});
              }),
              "completion: Say whether it was completed: yes, half or no.");
    EXPECT_EQ(refusalOf([] {
                  completionFrom({"completion", "maybe"});
              }),
              "completion: Say whether it was completed: yes, half or no.");
}

TEST(Answers, areLocalTimes)
{
    const TimeZone utc("UTC");
    EXPECT_EQ(startFrom({"at", "+1h"}, moment), moment + 3600);
    EXPECT_EQ(
        refusalOf([] {
            startFrom({"at", "noon"}, moment);
        }),
        "at: \"noon\" is no local time, such as 14:30, 9am, tomorrow 9:00, mon 14:00, 2026-11-15 09:00 or "
        "in 20m.");
    EXPECT_EQ(refusalOf([] { requireToCome("at", moment, moment); }), "accepted");
    EXPECT_EQ(refusalOf([] { requireToCome("at", moment - 60, moment); }),
              "at: The time to begin, 2026-11-15 14:59, has passed; name a later time, or begin now.");
    EXPECT_EQ(refusalOf([] {
                  requireToCome("at", moment - 60, {moment, base::Hours::twelve});
              }),
              "at: The time to begin, 2026-11-15 2:59 pm, has passed; name a later time, or begin now.");
}

TEST(Answers, areNoBlankQuestions)
{
    EXPECT_EQ(refusalOf([] { requireQuestion("question", "Why?"); }), "accepted");
    EXPECT_EQ(refusalOf([] { requireQuestion("question", " \n\t"); }), "question: A question needs a text.");
}

TEST(Answers, areNoBlankAnswersToQuestions)
{
    EXPECT_EQ(refusalOf([] { requireAnswer("answer", "No."); }), "accepted");
    EXPECT_EQ(refusalOf([] { requireAnswer("answer", " \n\t"); }),
              "answer: An answer needs a text. quillmere answer QUESTION --dismiss closes a question without "
              "one.");
}

TEST(Answers, areYesAndNoInUpperOrLowerCase)
{
    for (const char* word : {"y", "Y", "yes", "Yes", "YES"}) {
        EXPECT_TRUE(agreementFrom({"", word})) << word;
    }
    for (const char* word : {"n", "N", "no", "No", "NO"}) {
        EXPECT_FALSE(agreementFrom({"", word})) << word;
    }
    for (const char* word : {"", "ye", "yes ", "ja", "nope"}) {
        EXPECT_EQ(refusalOf([&] { agreementFrom({"", word}); }), ": Say yes or no.") << word;
    }
}

TEST(Outcomes, keepTheIdentifiersOfTheirItems)
{
    const std::vector<Outcome> outcomes = outcomesFrom({{identifier(7).text(), "Old"}, {"", "New"}});
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(outcomes[0], (Outcome{.id = identifier(7), .title = "Old"}));
    EXPECT_EQ(outcomes[1].title, "New");
}

TEST(Outcomes, dropUntitledItemsButKeepOne)
{
    EXPECT_EQ(outcomesFrom({{"", ""}, {"", "One"}, {"", ""}}).size(), 1U);
    EXPECT_EQ(outcomesFrom({{"", ""}, {"", ""}}).size(), 1U);
    EXPECT_EQ(outcomesFrom({}).size(), 1U);
}

}  // namespace
}  // namespace quillmere::test
