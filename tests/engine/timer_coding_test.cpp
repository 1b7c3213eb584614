// The JSON forms of the timer.
#include <gtest/gtest.h>
#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <array>
#include <functional>
#include <string>

namespace quillmere::test {
namespace {

constexpr TimerSnapshot overtime{
    .kind = TimerKind::breakTime,
    .elapsedSeconds = 400,
    .remainingSeconds = -100,
    .displaySeconds = 101,
    .isOvertime = true,
    .isPaused = false,
};

constexpr std::string_view overtimeText =
    R"({"display_seconds":101,"elapsed_seconds":400,"is_overtime":true,"is_paused":false,)"
    R"("kind":"breakTime","remaining_seconds":-100})";

TEST(TimerKind, isKnownByExactlyTwoTexts)
{
    EXPECT_EQ(fromRawValue<TimerKind>("focus"), TimerKind::focus);
    EXPECT_EQ(fromRawValue<TimerKind>("breakTime"), TimerKind::breakTime);
    for (const char* text :
         {"break", "Focus", "breaktime", "break_time", "BREAKTIME", "focus ", " focus", ""}) {
        EXPECT_EQ(fromRawValue<TimerKind>(text), std::nullopt) << text;
    }
    EXPECT_EQ(rawValue(TimerKind::focus), "focus");
    EXPECT_EQ(rawValue(TimerKind::breakTime), "breakTime");
    EXPECT_EQ(allCases<TimerKind>(), (std::array{TimerKind::focus, TimerKind::breakTime}));
}

TEST(TimerKindDeathTest, stopsTheProgramOverAValueThatIsNoCase)
{
    EXPECT_DEATH((void)rawValue(static_cast<TimerKind>(2)),
                 "an enumeration holds a value that is none of its cases");
}

TEST(TimerKind, isHashable)
{
    const std::hash<TimerKind> hash;
    EXPECT_EQ(hash(TimerKind::focus), hash(TimerKind::focus));
    EXPECT_NE(hash(TimerKind::focus), hash(TimerKind::breakTime));
}

TEST(TimerSnapshotCoding, writesOneKeyAField)
{
    EXPECT_EQ(JsonEncoder(JsonLayout::compact).encode(overtime).view(), overtimeText);
}

TEST(TimerSnapshotCoding, readsWhatItWrites)
{
    EXPECT_EQ(JsonDecoder().decode<TimerSnapshot>(Bytes(overtimeText)), overtime);
}

}  // namespace
}  // namespace quillmere::test
