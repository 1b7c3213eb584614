// The widget's summary as JSON.
#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include <limits>

#include "support/json_members.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

template <class Record>
std::string compact(const Record& record)
{
    return std::string(JsonEncoder(JsonLayout::compact).encode(record).view());
}

template <class Record = WidgetSnapshot>
Record decoded(const std::string& text)
{
    return JsonDecoder().decode<Record>(Bytes(text));
}

/// The path of the decoding error; "(nowhere)" without an error.
template <class Record = WidgetSnapshot>
std::string failurePath(const std::string& text)
{
    try {
        decoded<Record>(text);
    } catch (const DecodingError& error) {
        return error.path();
    }
    return "(nowhere)";
}

const std::string& whole()
{
    static const std::string text = compact(WidgetSnapshot::placeholder(moment));
    return text;
}

TEST(WidgetCoding, isOneLineWithSortedKeys)
{
    EXPECT_EQ(whole(),
              R"({"countdown":{"ends_at":"2026-11-15T15:17:00Z","frozen_remaining_seconds":1020,)"
              R"("is_paused":false,"started_at":"2026-11-15T14:52:00Z"},"current_session_number":3,)"
              R"("energy":4,"first_action":"Open the pull request template",)"
              R"("intended_outcome":"Draft the widget acceptance notes","morale":4,)"
              R"("open_question_count":1,)"
              R"("open_questions":["Which signing identity should the release use?"],"phase":"focusing",)"
              R"("route":"focus","schema_version":1,"sessions_planned":8,"sessions_started":3,)"
              R"("updated_at":"2026-11-15T15:00:00Z"})");
}

TEST(WidgetCoding, omitsAbsentValuesAndWritesNoNull)
{
    EXPECT_EQ(compact(WidgetSnapshot::empty(moment)),
              R"({"first_action":"","intended_outcome":"","open_question_count":0,"open_questions":[],)"
              R"("phase":"idle","route":"idle","schema_version":1,"sessions_planned":0,)"
              R"("sessions_started":0,"updated_at":"2026-11-15T15:00:00Z"})");
}

TEST(WidgetCoding, keepsTextsOnTheOneLineWithoutEscapingSlashes)
{
    WidgetSnapshot snapshot = WidgetSnapshot::empty(moment);
    snapshot.intendedOutcome = "a/b\n\"c\"";
    EXPECT_NE(compact(snapshot).find(R"("intended_outcome":"a/b\n\"c\"")"), std::string::npos);
    EXPECT_EQ(decoded(compact(snapshot)), snapshot);
}

TEST(WidgetCoding, isReadBackAsTheSameSummary)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const WidgetSnapshot snapshot = WidgetSnapshot::make(stateIn(workflowState), moment);
        EXPECT_EQ(decoded(compact(snapshot)), snapshot);
    }
    EXPECT_EQ(decoded(whole()), WidgetSnapshot::placeholder(moment));
}

TEST(WidgetCoding, dropsFractionsOfSeconds)
{
    const WidgetSnapshot snapshot = decoded(compact(WidgetSnapshot::placeholder(moment + 0.75)));
    EXPECT_EQ(snapshot, WidgetSnapshot::placeholder(moment));
}

TEST(WidgetCoding, takesTheRouteFromThePhaseWhenItIsMissingOrNull)
{
    constexpr struct {
        std::string_view phase;
        WidgetRoute route;
    } rows[] = {
        {"\"idle\"", WidgetRoute::idle},          {"\"planning\"", WidgetRoute::sessionPlanning},
        {"\"focusing\"", WidgetRoute::focus},     {"\"reviewing\"", WidgetRoute::sessionReview},
        {"\"breaking\"", WidgetRoute::breakTime}, {"\"complete\"", WidgetRoute::idle},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.phase);
        const std::string text = with("phase", row.phase, whole());
        EXPECT_EQ(decoded(without("route", text)).route, row.route);
        EXPECT_EQ(decoded(with("route", "null", text)).route, row.route);
    }
}

TEST(WidgetCoding, keepsAGivenRouteForAnyPhase)
{
    const WidgetSnapshot snapshot = decoded(with("route", "\"block-review\"", whole()));
    EXPECT_EQ(snapshot.phase, WidgetPhase::focusing);
    EXPECT_EQ(snapshot.route, WidgetRoute::blockReview);
}

TEST(WidgetCoding, takesNoQuestionsWhenTheListIsMissingOrNull)
{
    for (const std::string& text :
         {without("open_questions", whole()), with("open_questions", "null", whole())}) {
        EXPECT_TRUE(decoded(text).openQuestions.empty());
        EXPECT_EQ(decoded(text).openQuestionCount, 1) << "the count stands for itself";
    }
}

TEST(WidgetCoding, readsMoreQuestionsThanAreEverWritten)
{
    EXPECT_EQ(decoded(with("open_questions", R"(["a","b","c","d"])", whole())).openQuestions.size(), 4u);
}

TEST(WidgetCoding, namesTheQuestionThatIsNoText)
{
    EXPECT_EQ(failurePath(with("open_questions", "[\"a\",null]", whole())), "open_questions[1]");
}

TEST(WidgetCoding, failsForAnInstantWithoutADate)
{
    constexpr Instant never(std::numeric_limits<double>::infinity());
    EXPECT_THROW(compact(WidgetSnapshot::empty(never)), EncodingError);
    WidgetSnapshot snapshot = WidgetSnapshot::placeholder(moment);
    snapshot.countdown->endsAt = never;
    try {
        compact(snapshot);
        FAIL() << "nothing was thrown";
    } catch (const EncodingError& error) {
        EXPECT_EQ(error.path(), "countdown.ends_at");
    }
}

}  // namespace
}  // namespace quillmere::test
