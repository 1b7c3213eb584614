// Deep nesting does not exhaust the stack.
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include "records/coding_helpers.hpp"
#include "records/json/malformed_texts.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::decodingError;
using test::isMalformed;
using test::nested;
using test::repeated;

struct Brackets {
    std::string_view open;
    std::string_view close;
};
constexpr Brackets kinds[] = {{"[", "]"}, {"{\"a\":", "}"}, {"[{\"a\":", "}]"}, {"[0,", ",0]"}};

/// The number of containers that one opening of this kind begins.
std::size_t depthOf(const Brackets& kind) { return kind.open.size() == 6 ? 2 : 1; }

/// That many nested containers, with a value in the innermost one.
std::string nest(const Brackets& kind, std::size_t depth)
{
    const std::size_t count = depth / depthOf(kind);
    return repeated(kind.open, count) + "1" + repeated(kind.close, count);
}

std::string stateWithIgnored(const std::string& value)
{
    return "{\"zzz\":" + value + "," + test::compactText(test::stateIn(WorkflowState::idle)).substr(1);
}

TEST(Nesting, isAcceptedUpTo1000LevelsInIgnoredKeys)
{
    for (const Brackets& kind : kinds) {
        for (const std::size_t depth : {2U, 10U, 100U, 500U, 1000U}) {
            SCOPED_TRACE(testing::Message() << kind.open << " " << depth);
            const auto error = decodingError<QuillmereState>(stateWithIgnored(nest(kind, depth)));
            EXPECT_FALSE(error) << error->what();
        }
    }
    EXPECT_FALSE(decodingError<QuillmereState>(stateWithIgnored(nested("[", "]", 1000))));
    EXPECT_FALSE(decodingError<QuillmereState>(
        stateWithIgnored(repeated("{\"a\":", 999) + "{" + repeated("}", 1000))));
}

TEST(Nesting, endsAt1024LevelsTheDocumentIncluded)
{
    for (const Brackets& kind : kinds) {
        SCOPED_TRACE(kind.open);
        // The state is one level, and the list around the nested containers is another.
        EXPECT_FALSE(decodingError<QuillmereState>(stateWithIgnored("[" + nest(kind, 1022) + "]")));
        EXPECT_TRUE(
            isMalformed(decodingError<QuillmereState>(stateWithIgnored("[[" + nest(kind, 1022) + "]]"))));
        EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(stateWithIgnored(nest(kind, 1026)))));
    }
}

TEST(Nesting, countsFromTheDocumentAlsoInsideOfRecords)
{
    const std::string text = test::compactText(test::stateIn(WorkflowState::focusing));
    const std::string place = "\"plan\":{";
    // State, block, list of sessions, session and plan are five levels.
    for (const auto& [depth, isAccepted] : {std::pair(1019, true), std::pair(1020, false)}) {
        std::string changed = text;
        changed.insert(text.find(place) + place.size(),
                       "\"zzz\":" + nested("[", "]", static_cast<std::size_t>(depth)) + ",");
        EXPECT_EQ(!decodingError<QuillmereState>(changed), isAccepted) << depth;
    }
}

TEST(Nesting, of100000LevelsFailsAtEveryPlace)
{
    constexpr std::size_t depth = 100'000;
    const std::string idle = test::compactText(test::stateIn(WorkflowState::idle));
    for (const Brackets& kind : kinds) {
        SCOPED_TRACE(kind.open);
        const std::string openOnly = repeated(kind.open, depth);
        const std::string balanced = nest(kind, depth);
        for (const std::string& value :
             {openOnly, balanced, openOnly + "1", balanced + kind.close.data()[0]}) {
            EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(value)));
            EXPECT_TRUE(isMalformed(decodingError<WorkflowState>(value)));
            EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(stateWithIgnored(value))));
            EXPECT_TRUE(isMalformed(decodingError<QuillmereState>("{\"zzz\":" + value)));
            // Instead of the values of a record.
            for (const char* key :
                 {"id", "current_block", "block_history", "agent_questions", "updated_at"}) {
                EXPECT_TRUE(isMalformed(decodingError<QuillmereState>("{\"" + std::string(key) +
                                                                      "\":" + value + "," + idle.substr(1))));
            }
        }
    }
}

TEST(Nesting, ofRecordsInRecordsCannotBeEndless)
{
    // Blocks in blocks: the inner blocks are unknown keys of the outer ones.
    const std::string text = repeated("{\"current_block\":", 100'000) + "{}" + repeated("}", 100'000);
    EXPECT_TRUE(isMalformed(decodingError<QuillmereState>(text)));
    EXPECT_TRUE(isMalformed(decodingError<Block>(text)));
}

TEST(Breadth, isNotNesting)
{
    const std::string wide = "[" + repeated("[],{},[[1]],{\"a\":{}},", 50'000) + "0]";
    EXPECT_FALSE(decodingError<QuillmereState>(stateWithIgnored(wide)));
    EXPECT_FALSE(
        decodingError<QuillmereState>(stateWithIgnored("{" + repeated("\"a\":[[]],", 50'000) + "\"b\":1}")));
}

}  // namespace
}  // namespace quillmere
