// The made-up year.
#include "generated_year.hpp"

#include "figures_testing.hpp"

namespace quillmere::test {
namespace {

TEST(GeneratedYear, isTheSameForTheSameInstantAndEndsThere)
{
    const TimeZone here("Europe/Berlin");
    const QuillmereState state = generatedYear(moment);
    EXPECT_EQ(generatedYear(moment), state);
    const LookBack look = figures::statistics(state, {}, day("2026-11-15"));
    EXPECT_GT(look.focusDays, 200);
    EXPECT_EQ(look.sessionsWithoutTime, 0);
    EXPECT_LE(*look.sessions.back().session->endedAt, moment);
}

}  // namespace
}  // namespace quillmere::test
