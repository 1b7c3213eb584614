// Text that is not JSON (RFC 8259) is refused, in the values of unknown keys too.
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "records/coding_helpers.hpp"
#include "records/json/malformed_texts.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using namespace std::string_literals;
using test::decoded;
using test::decodingError;
using test::isMalformed;

/// The compact text of a small state with a block, with `insertion` directly after `place`.
std::string stateWith(std::string_view place, std::string_view insertion)
{
    static const std::string text = test::compactText(test::stateIn(WorkflowState::focusing));
    std::string changed = text;
    return changed.insert(changed.find(place) + place.size(), insertion);
}

/// Places for a value that no record needs.
std::vector<std::string> withIgnored(const std::string& value)
{
    const std::string member = "\"zzz\":" + value;
    return {
        stateWith("{", member + ","),
        stateWith(R"("workflow_state":"focusing")", "," + member),
        stateWith("{", "\"zzz\":[1,{\"a\":\"\",\"b\":" + value + "},{}],"),
        stateWith("{", "\"zzz\":{\"a\":[[0," + value + "]]},"),
        stateWith("\"current_block\":{", member + ","),
        stateWith("\"sessions\":[{", member + ","),
        stateWith("\"plan\":{", "\"zzz\":[0," + value + "],"),
        stateWith("\"title\":\"Chapter two\"", ",\"zzz\":{\"a\":" + value + "}"),
    };
}

/// The same value as a duplicate before the value that counts, or instead of it.
std::vector<std::string> withMisplaced(const std::string& value)
{
    std::vector<std::string> texts;
    for (const char* key : {"id", "workflow_state", "current_block", "block_history",
                            "break_extension_seconds", "agent_questions", "updated_at", "break_started_at"}) {
        texts.push_back(stateWith("{", '"' + std::string(key) + "\":" + value + ","));
    }
    texts.push_back("{\"workflow_state\":" + value + "}");
    texts.push_back(stateWith("\"agent_questions\":[", value));
    texts.push_back(stateWith("\"plan\":{", "\"energy\":" + value + ","));
    texts.push_back(stateWith("\"plan\":{", "\"first_action\":" + value + ","));
    return texts;
}

TEST(MalformedValue, failsInTheValueOfAnUnknownKey)
{
    for (const std::string& value : test::malformedValues()) {
        for (const std::string& text : withIgnored(value)) {
            SCOPED_TRACE(testing::PrintToString(text));
            ASSERT_FALSE(nlohmann::json::accept(text)) << "the test itself is wrong";
            const auto error = decodingError<QuillmereState>(text);
            EXPECT_TRUE(isMalformed(error)) << (error ? error->what() : "accepted");
        }
    }
}

TEST(MalformedValue, isReportedAsMalformedInTheValueOfAField)
{
    for (const std::string& value : test::malformedValues()) {
        for (const std::string& text : withMisplaced(value)) {
            if (nlohmann::json::accept(text)) {
                continue;  // no text in an empty list is still an empty list
            }
            SCOPED_TRACE(testing::PrintToString(text));
            const auto error = decodingError<QuillmereState>(text);
            EXPECT_TRUE(isMalformed(error)) << (error ? error->what() : "accepted");
        }
    }
}

TEST(MalformedValue, failsAsAWholeDocument)
{
    for (const std::string& value : test::malformedValues()) {
        SCOPED_TRACE(testing::PrintToString(value));
        EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(value)));
        EXPECT_TRUE(isMalformed(decodingError<WorkflowState>(value)));
    }
}

TEST(OddValue, isIgnoredInTheValueOfAnUnknownKey)
{
    for (const std::string& value : test::oddValues()) {
        for (const std::string& text : withIgnored(value)) {
            SCOPED_TRACE(testing::PrintToString(text));
            const auto error = decodingError<QuillmereState>(text);
            ASSERT_FALSE(error) << error->what();
            EXPECT_EQ(decoded<QuillmereState>(text), test::stateIn(WorkflowState::focusing));
        }
    }
}

TEST(OddValue, isWellFormedThoughOfAnotherTypeAsAWholeDocument)
{
    for (const std::string& value : test::oddValues()) {
        SCOPED_TRACE(value);
        const auto error = decodingError<QuillmereState>(value);
        ASSERT_TRUE(error);
        EXPECT_FALSE(isMalformed(error)) << error->what();
        EXPECT_FALSE(isMalformed(decodingError<WorkflowState>(value)));
    }
}

TEST(Document, maySitInWhiteSpace)
{
    const std::string text = test::prettyText(test::fullState());
    EXPECT_EQ(decoded<QuillmereState>(" \t\r\n" + text + "\n\r\t "), test::fullState());
    EXPECT_EQ(decoded<QuillmereState>(text + std::string(1000, '\n')), test::fullState());
    EXPECT_EQ(decoded<QuillmereState>(std::string(1000, ' ') + text), test::fullState());
}

TEST(Document, failsWithAnythingElseAroundIt)
{
    const std::string text = test::compactText(test::stateIn(WorkflowState::idle));
    for (const std::string& other :
         {"x"s,     "{}"s, "[]"s,           "]"s,  "}"s,    "{"s,    "["s,  ","s, ":"s, "\""s, "null"s, "1"s,
          "\"a\""s, "\0"s, "\xEF\xBB\xBF"s, "//"s, "/**/"s, "\x80"s, "\f"s, text}) {
        for (const char* space :
             {"", " ", "\n", "                                                                "}) {
            SCOPED_TRACE(testing::PrintToString(other + space));
            EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(text + space + other)));
            EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(other + space + text)));
        }
    }
}

TEST(Document, isMalformedBeforeAnyFieldIsOfAWrongType)
{
    // The reader finds it last, but it is the most important error: nothing else in the document is reliable.
    for (const std::string& tail : {"x"s, "{}"s, "]"s, "}"s, ","s, "1"s, " \"a\""s}) {
        for (const std::string& front : {"{}"s, "{\"id\":3}"s, "[]"s, "3"s, "\"a\""s, "null"s, "[1,2]"s}) {
            SCOPED_TRACE(front + tail);
            if (!nlohmann::json::accept(front + tail)) {
                EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(front + tail)));
            }
        }
    }
}

TEST(Document, failsWithAByteOrderMark)
{
    EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(
        "\xEF\xBB\xBF" + test::compactText(test::stateIn(WorkflowState::idle)))));
    EXPECT_TRUE(isMalformed(decodingError<QuillmereState>("\xFE\xFF")));
}

TEST(Document, failsWhenEmptyOrNothingButWhiteSpace)
{
    for (const std::string& text : {""s, " "s, "\n"s, "\t\r\n "s, std::string(100, ' '),
                                    std::string(5000, '\n'), "\xEF\xBB\xBF"s, "\0"s}) {
        SCOPED_TRACE(testing::PrintToString(text));
        EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(text)));
        EXPECT_TRUE(isMalformed(decodingError<Outcome>(text)));
        EXPECT_TRUE(isMalformed(decodingError<CompletionResult>(text)));
    }
}

TEST(Document, failsWhenItsEndIsCutOffAtAnyPlace)
{
    QuillmereState state = test::fullState();
    state.blockHistory.front().sessions.pop_back();
    state.agentQuestions[0].question = "\xE2\x82\xAC \xF0\x9F\x98\x80 \"\\";
    for (const std::string& text : {test::compactText(state), test::prettyText(state)}) {
        ASSERT_FALSE(decodingError<QuillmereState>(text));
        for (std::size_t length = 0; length < text.size(); ++length) {
            const auto error = decodingError<QuillmereState>(text.substr(0, length));
            ASSERT_TRUE(isMalformed(error)) << length << ": " << (error ? error->what() : "accepted");
        }
    }
}

TEST(Document, failsWhenItsBeginningIsCutOffAtAnyPlace)
{
    const std::string text = test::compactText(test::stateIn(WorkflowState::focusing));
    for (std::size_t start = 1; start < text.size(); ++start) {
        const std::string rest = text.substr(start);
        ASSERT_TRUE(isMalformed(decodingError<QuillmereState>(rest))) << rest;
    }
}

}  // namespace
}  // namespace quillmere
