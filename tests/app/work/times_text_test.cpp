#include "work/times_text.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(TimesText, saysUntilWhenABlockLasts)
{
    const TimeZone here("UTC");
    Block block = Block::default_(moment - 86'400);
    EXPECT_EQ(work::timesText(block, moment), "8 \u00D7 25 min, until 19:00");
    block.cycleCount = 30;
    block.focusDurationSeconds = 5400;
    EXPECT_EQ(work::timesText(block, moment), "30 \u00D7 1 h 30 min, until 2026-11-17 14:30");
}

TEST(TimesText, saysFromWhenABlockLastsThatBeginsLater)
{
    const TimeZone here("UTC");
    Block block = Block::default_(moment);
    block.plannedStart = moment + 3600;
    EXPECT_EQ(work::timesText(block, moment), "8 \u00D7 25 min, from 16:00 until 20:00");
}

}  // namespace
}  // namespace quillmere::test
