// Enumerations as JSON texts, in records and as whole documents.
#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/completion_result.hpp>
#include <quillmere/records/workflow_state.hpp>

#include <gtest/gtest.h>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::decoded;
using test::decodingError;
using test::isMalformed;

template <class Enumeration>
class EnumerationCoding : public testing::Test {
};
using Codable = testing::Types<WorkflowState, CompletionResult, TimerKind>;
TYPED_TEST_SUITE(EnumerationCoding, Codable);

template <class Enumeration>
std::string quoted(Enumeration value)
{
    return '"' + std::string(rawValue(value)) + '"';
}

TYPED_TEST(EnumerationCoding, isTheQuotedRawTextInEitherLayout)
{
    for (const TypeParam value : allCases<TypeParam>()) {
        EXPECT_EQ(test::compactText(value), quoted(value));
        EXPECT_EQ(test::prettyText(value), quoted(value));
        EXPECT_EQ(decoded<TypeParam>(quoted(value)), value);
    }
}

TYPED_TEST(EnumerationCoding, mayStandBetweenWhiteSpace)
{
    for (const TypeParam value : allCases<TypeParam>()) {
        EXPECT_EQ(decoded<TypeParam>(" \t\r\n" + quoted(value) + "\n \t\r"), value);
    }
}

TYPED_TEST(EnumerationCoding, mayBeSpelledWithEscapes)
{
    for (const TypeParam value : allCases<TypeParam>()) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(rawValue(value).front()));
        EXPECT_EQ(decoded<TypeParam>('"' + (escape + std::string(rawValue(value).substr(1))) + '"'), value);
    }
}

TYPED_TEST(EnumerationCoding, refusesTextAfterTheValue)
{
    const std::string text = quoted(allCases<TypeParam>().front());
    for (const std::string& tail :
         {std::string("x"), text, std::string(","), std::string("]"), std::string("}"), std::string(" 1"),
          std::string("\0", 1), std::string("\n//"), std::string("\"")}) {
        SCOPED_TRACE(tail);
        EXPECT_TRUE(isMalformed(decodingError<TypeParam>(text + tail)));
        EXPECT_TRUE(isMalformed(decodingError<TypeParam>(tail + text)));
    }
}

TYPED_TEST(EnumerationCoding, refusesEveryOtherText)
{
    std::string expected = "one of ";
    for (const TypeParam value : allCases<TypeParam>()) {
        expected += (value == allCases<TypeParam>().front() ? "" : ", ") + quoted(value);
    }
    const std::string first(rawValue(allCases<TypeParam>().front()));
    for (const std::string& text :
         {std::string(R"("")"), std::string(R"("other")"), '"' + first + " \"", '"' + first + R"(\u0000")",
          R"("\n)" + first + '"', std::string("null"), std::string("true"), std::string("0"),
          std::string("3.5"), std::string("[]"), std::string("{}"), "[\"" + first + "\"]"}) {
        SCOPED_TRACE(text);
        const auto error = decodingError<TypeParam>(text);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "");
        EXPECT_EQ(error->expected(), expected);
    }
}

TYPED_TEST(EnumerationCoding, refusesTextThatIsNoJson)
{
    const std::string first(rawValue(allCases<TypeParam>().front()));
    for (const std::string& text :
         {std::string(), std::string(" \n"), first, '"' + first, first + '"', '\'' + first + '\'',
          '"' + first + "\\\"", "\"\\x\"" + first, std::string(R"("\ud800")")}) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(isMalformed(decodingError<TypeParam>(text)));
    }
}

TEST(CompletionInFile, isReadAsSpelledOnly)
{
    const std::string review = test::compactText(test::sampleReview(1));
    EXPECT_EQ(decoded<SessionReview>(test::withScalar(review, "completion", R"("Half")")).completion,
              CompletionResult::half);
    for (const std::string_view text :
         {R"("half")", R"("HALF")", R"("yes")", R"("Half ")", R"("")", "1", "null"}) {
        SCOPED_TRACE(text);
        const auto error = decodingError<SessionReview>(test::withScalar(review, "completion", text));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "completion");
        EXPECT_EQ(error->expected(), R"(one of "Yes", "Half", "No")");
        EXPECT_EQ(error->found(), text);
    }
}

TEST(WorkflowStateInFile, isReadAsSpelledOnly)
{
    const std::string state = test::compactText(test::stateIn(WorkflowState::idle));
    for (const WorkflowState value : allCases<WorkflowState>()) {
        const std::string text = test::withScalar(state, "workflow_state", quoted(value));
        EXPECT_EQ(decoded<QuillmereState>(text).workflowState, value);
    }
    for (const std::string_view text :
         {R"("paused")", R"("block_planning")", R"("Idle")", R"("IDLE")", R"("")", "0", "null"}) {
        SCOPED_TRACE(text);
        const auto error = decodingError<QuillmereState>(test::withScalar(state, "workflow_state", text));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "workflow_state");
        EXPECT_EQ(error->found(), text);
    }
}

}  // namespace
}  // namespace quillmere
