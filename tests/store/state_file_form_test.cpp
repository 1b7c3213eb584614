// The layout of the two files.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

/// The lines of both files of a state that has every record in it.
class StateFileForm : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const StateStore store{directory.path(), StateStore::renameReplacing};

    void SetUp() override { store.save(fullState()); }

    std::vector<std::string> texts() const
    {
        return {textOf(store.stateURL()), textOf(store.agentStateURL())};
    }
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::size_t indentationOf(const std::string& line) { return line.find_first_not_of(' '); }

constexpr std::string_view behindKey = "\" : ";

/// The key of a line with a member; empty for any other line.
std::string keyIn(const std::string& line)
{
    const std::size_t begin = indentationOf(line) + 1;
    const std::size_t end = line.find(behindKey);
    return line[begin - 1] == '"' && end != std::string::npos ? line.substr(begin, end - begin) : "";
}

TEST_F(StateFileForm, hasTheKeysOfEveryObjectInByteOrder)
{
    for (const std::string& text : texts()) {
        // The last key at each indentation; removed when a new object begins.
        std::map<std::size_t, std::string> lastKeys;
        std::size_t keyCount = 0;
        for (const std::string& line : linesOf(text)) {
            const std::string key = keyIn(line);
            if (!key.empty()) {
                EXPECT_LT(lastKeys[indentationOf(line)], key);
                lastKeys[indentationOf(line)] = key;
                ++keyCount;
            }
            if (line.back() == '{') {
                lastKeys.erase(lastKeys.upper_bound(indentationOf(line)), lastKeys.end());
            }
        }
        EXPECT_GT(keyCount, 100u);
    }
}

TEST_F(StateFileForm, hasKeysInSnakeCaseOnly)
{
    for (const std::string& text : texts()) {
        for (const std::string& line : linesOf(text)) {
            EXPECT_EQ(keyIn(line).find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string::npos)
                << line;
        }
    }
}

TEST_F(StateFileForm, hasOneMemberALine)
{
    for (const std::string& text : texts()) {
        for (const std::string& line : linesOf(text)) {
            EXPECT_EQ(line.find(behindKey), line.rfind(behindKey)) << line;
        }
    }
}

TEST_F(StateFileForm, isIndentedByTwoSpacesALevel)
{
    for (const std::string& text : texts()) {
        std::size_t depth = 0;
        for (const std::string& line : linesOf(text)) {
            const std::size_t indentation = indentationOf(line);
            depth -= line[indentation] == '}' || line[indentation] == ']' ? 1 : 0;
            EXPECT_EQ(indentation, 2 * depth) << line;
            depth += line.back() == '{' || line.back() == '[' ? 1 : 0;
        }
        EXPECT_EQ(depth, 0u);
    }
}

TEST_F(StateFileForm, endsWithItsLastBracket)
{
    for (const std::string& text : texts()) {
        EXPECT_EQ(text.front(), '{');
        EXPECT_EQ(text.substr(text.size() - 2), "\n}");
    }
}

TEST_F(StateFileForm, doesNotEscapeSlashes)
{
    for (const std::string& text : texts()) {
        EXPECT_NE(text.find("https://example.com/a"), std::string::npos);
        EXPECT_EQ(text.find("\\/"), std::string::npos);
    }
}

TEST_F(StateFileForm, isExactlyThisForAnInitialState)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.id = identifier(1);
    store.save(state);
    EXPECT_EQ(textOf(store.stateURL()), R"({
  "agent_questions" : [],
  "block_history" : [],
  "break_extension_seconds" : 0,
  "id" : "9F1C2A4E-0B7D-4C55-8E21-000000000001",
  "updated_at" : "2026-11-15T15:00:00Z",
  "workflow_state" : "idle"
})");
    EXPECT_EQ(textOf(store.agentStateURL()), R"({
  "block" : null,
  "current_session" : null,
  "interruptible" : true,
  "next_session" : null,
  "open_questions" : [],
  "outcomes" : [],
  "remaining_seconds" : null,
  "schema_version" : 1,
  "sessions" : [],
  "tasks" : [],
  "updated_at" : "2026-11-15T15:00:00Z",
  "workflow_state" : "idle"
})");
}

TEST_F(StateFileForm, isThatOfTheStoresEncoder)
{
    EXPECT_EQ(textOf(store.stateURL()), StateStore::encoder().encode(fullState()).view());
    EXPECT_EQ(StateStore::decoder().decode<QuillmereState>(Bytes(textOf(store.stateURL()))), fullState());
}

}  // namespace
}  // namespace quillmere::test
