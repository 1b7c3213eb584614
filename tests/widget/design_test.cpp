// Design values.
#include <quillmere/widget/design.hpp>

#include <gtest/gtest.h>

#include "support/extreme_numbers.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using QuillmereDesign::Accent;
using QuillmereDesign::accent;
using QuillmereDesign::caption;
using QuillmereDesign::timeText;

WidgetSnapshot snapshotIn(WidgetPhase phase)
{
    WidgetSnapshot snapshot = WidgetSnapshot::empty(moment);
    snapshot.phase = phase;
    return snapshot;
}

WidgetSnapshot focusing(std::optional<std::int64_t> number, std::int64_t planned)
{
    WidgetSnapshot snapshot = snapshotIn(WidgetPhase::focusing);
    snapshot.currentSessionNumber = number;
    snapshot.sessionsPlanned = planned;
    return snapshot;
}

TEST(Accent, hasTheseCasesInThisOrderWithTheseTexts)
{
    constexpr std::string_view texts[] = {"focus", "rest", "plan", "review", "neutral"};
    constexpr Accent accents[] = {Accent::focus, Accent::rest, Accent::plan, Accent::review, Accent::neutral};
    for (std::size_t index = 0; index < std::size(texts); ++index) {
        EXPECT_EQ(static_cast<std::size_t>(accents[index]), index);
        EXPECT_EQ(rawValue(accents[index]), texts[index]);
        EXPECT_EQ(fromRawValue<Accent>(texts[index]), accents[index]);
    }
}

TEST(Accent, followsFromThePhase)
{
    EXPECT_EQ(accent(WidgetPhase::idle), Accent::neutral);
    EXPECT_EQ(accent(WidgetPhase::planning), Accent::plan);
    EXPECT_EQ(accent(WidgetPhase::focusing), Accent::focus);
    EXPECT_EQ(accent(WidgetPhase::reviewing), Accent::review);
    EXPECT_EQ(accent(WidgetPhase::breaking), Accent::rest);
    EXPECT_EQ(accent(WidgetPhase::complete), Accent::neutral);
}

TEST(Spacing, hasTheseValuesInLayoutPoints)
{
    EXPECT_EQ(QuillmereDesign::Spacing::none, 0.0);
    EXPECT_EQ(QuillmereDesign::Spacing::tight, 4.0);
    EXPECT_EQ(QuillmereDesign::Spacing::snug, 8.0);
    EXPECT_EQ(QuillmereDesign::Spacing::regular, 12.0);
    EXPECT_EQ(QuillmereDesign::Spacing::loose, 16.0);
    EXPECT_EQ(QuillmereDesign::Spacing::section, 24.0);
}

TEST(Radius, hasTheseValuesInLayoutPoints)
{
    EXPECT_EQ(QuillmereDesign::Radius::control, 8.0);
    EXPECT_EQ(QuillmereDesign::Radius::card, 12.0);
}

TEST(TimeText, hasMinutesAndSecondsAndAPlusInOvertime)
{
    constexpr struct {
        std::int64_t seconds;
        std::string_view expected;
    } rows[] = {
        {0, "00:00"},
        {1, "00:01"},
        {9, "00:09"},
        {10, "00:10"},
        {59, "00:59"},
        {60, "01:00"},
        {61, "01:01"},
        {599, "09:59"},
        {600, "10:00"},
        {1500, "25:00"},
        {3599, "59:59"},
        {3600, "60:00"},
        {3661, "61:01"},
        {5999, "99:59"},
        {6000, "100:00"},
        {86'400, "1440:00"},
        {2'147'483'647, "35791394:07"},
        {128'849'018'880, "2147483648:00"},
        {most, "153722867280912930:07"},
        {-1, "+00:01"},
        {-59, "+00:59"},
        {-60, "+01:00"},
        {-75, "+01:15"},
        {-3661, "+61:01"},
        {-most, "+153722867280912930:07"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(timeText(row.seconds), row.expected);
    }
}

TEST(TimeTextDeathTest, stopsTheProgramForANumberWithoutAMagnitude)
{
    EXPECT_DEATH(timeText(least), "overflows 64 bits");
}

TEST(Caption, isOneLineForEachPhase)
{
    EXPECT_EQ(caption(snapshotIn(WidgetPhase::idle)), "No active block");
    EXPECT_EQ(caption(snapshotIn(WidgetPhase::planning)), "Plan the next session");
    EXPECT_EQ(caption(snapshotIn(WidgetPhase::focusing)), "Focus in progress");
    EXPECT_EQ(caption(snapshotIn(WidgetPhase::reviewing)), "Review this session");
    EXPECT_EQ(caption(snapshotIn(WidgetPhase::breaking)), "Break");
    EXPECT_EQ(caption(snapshotIn(WidgetPhase::complete)), "Block complete");
}

TEST(Caption, countsTheSessionsWhileFocusing)
{
    EXPECT_EQ(caption(focusing(3, 8)), "Session 3 of 8");
    EXPECT_EQ(caption(focusing(1, 1)), "Session 1 of 1");
    EXPECT_EQ(caption(focusing(9, 8)), "Session 9 of 8");
}

TEST(Caption, writesNumbersAsPlainDecimals)
{
    EXPECT_EQ(caption(focusing(0, 1)), "Session 0 of 1");
    EXPECT_EQ(caption(focusing(-2, 1'000'000)), "Session -2 of 1000000");
    EXPECT_EQ(caption(focusing(least, most)), "Session -9223372036854775808 of 9223372036854775807");
}

TEST(Caption, ofAFocusWithoutANumberOrWithoutPlannedSessionsDoesNotCount)
{
    EXPECT_EQ(caption(focusing(std::nullopt, 8)), "Focus in progress");
    EXPECT_EQ(caption(focusing(3, 0)), "Focus in progress");
    EXPECT_EQ(caption(focusing(3, -1)), "Focus in progress");
    EXPECT_EQ(caption(focusing(3, least)), "Focus in progress");
}

TEST(Caption, countsInNoOtherPhase)
{
    for (const WidgetPhase phase : allCases<WidgetPhase>()) {
        SCOPED_TRACE(rawValue(phase));
        WidgetSnapshot snapshot = focusing(3, 8);
        snapshot.phase = phase;
        EXPECT_EQ(caption(snapshot) == "Session 3 of 8", phase == WidgetPhase::focusing);
    }
}

}  // namespace
}  // namespace quillmere::test
