#include "config/stray_character.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using config::strayCharacter;
using config::TextPlace;

TEST(StrayCharacter, isNoneInQuotesAndComments)
{
    for (const char* const text : {
             "",
             "a = 1 # é\n",
             "\xEF\xBB\xBF# é",
             "\"é\" = 'é'",
             "a = \"a \\\" é\"",
             "a = 'é\\' # é",
             "a = \"\"\"\n\"é\" é\n\"\"\"\nb = '''\né''é'''",
         }) {
        EXPECT_FALSE(strayCharacter(text)) << text;
    }
}

TEST(StrayCharacter, isFoundWhereItStands)
{
    const std::pair<const char*, TextPlace> cases[] = {
        {"é = 1", {.line = 1, .column = 1}},
        {"# é\nab.é = 1", {.line = 2, .column = 4}},
        {"a = 'é' é", {.line = 1, .column = 9}},
        {"a = \"é\\é\"", {.line = 1, .column = 8}},
        {"a = \"\"\"\né\n\"\"\" é", {.line = 3, .column = 5}},
        {"a = \"unclosed\né", {.line = 2, .column = 1}},
        {"a = 1 \xEF\xBB\xBF", {.line = 1, .column = 7}},
    };
    for (const auto& [text, place] : cases) {
        EXPECT_EQ(strayCharacter(text), place) << text;
    }
}

}  // namespace
}  // namespace quillmere::test
