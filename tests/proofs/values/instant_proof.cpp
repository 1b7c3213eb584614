// Instants: every second of the years 0000 to 9999.
//
// These are 315 thousand million instants, but a text has two independent parts: the date depends only on the
// day, the time only on the second within the day, and an instant is their sum. So the proof tests every day
// at a few seconds, and every second on a few days.
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "proofs/support/figures.hpp"
#include "proofs/values/calendar_check.hpp"
#include "records/coding_helpers.hpp"
#include "support/extreme_numbers.hpp"

namespace quillmere::test {
namespace {

constexpr std::int64_t secondsPerDay = 86'400;
constexpr std::int64_t dayCount = daysBeforeYear(10'000);
static_assert(dayCount == 3'652'425);

constexpr double secondsAt(std::int64_t day, std::int64_t second)
{
    return static_cast<double>((day - daysBefore1970) * secondsPerDay + second);
}
constexpr double firstSecond = secondsAt(0, 0);
constexpr double endSecond = secondsAt(dayCount, 0);

void putDigits(std::string& text, std::size_t at, std::size_t count, std::int64_t value)
{
    for (std::size_t index = at + count; index > at; --index) {
        text[index - 1] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
}

/// Iterates over the days of the calendar from 0000-01-01.
class Calendar {
public:
    void nextDay()
    {
        ++dayNumber_;
        if (++day_ > daysOfMonth(year_, month_)) {
            day_ = 1;
            if (++month_ > 12) {
                month_ = 1;
                ++year_;
            }
        }
    }

    std::int64_t dayNumber() const { return dayNumber_; }
    std::int64_t year() const { return year_; }

    const std::string& textAt(std::int64_t second)
    {
        putDigits(text_, 0, 4, year_);
        putDigits(text_, 5, 2, month_);
        putDigits(text_, 8, 2, day_);
        putDigits(text_, 11, 2, second / 3600);
        putDigits(text_, 14, 2, second / 60 % 60);
        putDigits(text_, 17, 2, second % 60);
        return text_;
    }

private:
    std::int64_t dayNumber_ = 0;
    std::int64_t year_ = 0;
    std::int64_t month_ = 1;
    std::int64_t day_ = 1;
    std::string text_ = "0000-00-00T00:00:00Z";
};

std::string written(double seconds)
{
    if (!json::hasDateText(Instant(seconds))) {
        return "refused";
    }
    std::string text(json::dateTextLength, '?');
    json::putDateText(text.data(), Instant(seconds));
    return text;
}

/// Whether an instant is written as `text`, also with any fraction, and `text` is read as the instant.
bool survives(double seconds, const std::string& text)
{
    return written(seconds) == text && written(seconds + 0.25) == text &&
           written(std::nextafter(seconds + 1, -infinity)) == text &&
           json::instantFromDateText(text) == Instant(seconds);
}

/// The same test with a whole state.
bool survivesInRecord(double seconds, const std::string& text)
{
    static QuillmereState state = QuillmereState::initial(Instant(0));
    state.updatedAt = Instant(seconds + 0.25);
    const std::string file = compactText(state);
    return file.find("\"updated_at\":\"" + text + '"') != file.npos &&
           decoded<QuillmereState>(file).updatedAt == Instant(seconds);
}

/// The long form tests every day. The short one tests every 17th, which covers every day of every month, and
/// the ends of February and of the year.
bool isSeen(const Calendar& calendar, const std::string& text)
{
    const std::string_view date = std::string_view(text).substr(4, 6);
    return inLongForm() || calendar.dayNumber() % 17 == 0 || date == "-02-29" || date == "-12-31";
}

TEST(EveryInstant, readsBackEqualOnEveryDay)
{
    const auto secondsPerVisit = static_cast<std::int64_t>(amount(1, 4));
    std::uint64_t count = 0;
    std::mt19937 random(4);
    for (Calendar calendar; calendar.dayNumber() < dayCount; calendar.nextDay()) {
        const std::int64_t ends[] = {static_cast<std::int64_t>(random() % secondsPerDay), 0,
                                     secondsPerDay - 1, secondsPerDay / 2};
        if (!isSeen(calendar, calendar.textAt(0))) {
            continue;
        }
        for (std::int64_t visit = 0; visit < secondsPerVisit; ++visit) {
            const std::int64_t second = ends[visit];
            const std::string& text = calendar.textAt(second);
            if (!survives(secondsAt(calendar.dayNumber(), second), text)) {
                FAIL() << text;
            }
            ++count;
        }
        if (calendar.dayNumber() % 1700 == 0) {
            ASSERT_TRUE(survivesInRecord(secondsAt(calendar.dayNumber(), 0), calendar.textAt(0)));
        }
    }
    reportFigure("Round trip", "days of the years 0000 to 9999",
                 count / static_cast<std::uint64_t>(secondsPerVisit));
    reportFigure("Round trip", "instants on these days", count);
}

TEST(EveryInstant, readsBackEqualInEverySecondOfADay)
{
    // The limits of the calendar, leap days, and both sides of 1970.
    const std::vector<std::string> days =
        inLongForm()
            ? std::vector<std::string>{"0000-01-01", "0000-02-29", "1582-10-15", "1900-02-28", "1969-12-31",
                                       "1970-01-01", "2000-02-29", "2026-11-15", "9999-12-31"}
            : std::vector<std::string>{"0000-01-01", "1969-12-31"};
    std::uint64_t count = 0;
    for (const std::string& day : days) {
        std::string text = day + "T00:00:00Z";
        const double start = *secondsOfDateText(text);
        for (std::int64_t second = 0; second < secondsPerDay; ++second) {
            putDigits(text, 11, 2, second / 3600);
            putDigits(text, 14, 2, second / 60 % 60);
            putDigits(text, 17, 2, second % 60);
            if (!survives(start + static_cast<double>(second), text)) {
                FAIL() << text;
            }
            ++count;
        }
    }
    reportFigure("Round trip", "seconds of whole days", count);
}

TEST(EveryInstant, losesItsFractionTowardThePast)
{
    std::mt19937_64 bits(5);
    for (std::uint64_t left = amount(50'000, 20'000'000); left > 0; --left) {
        const double share = static_cast<double>(bits() >> 11) * 0x1p-53;
        const double seconds = firstSecond + share * (endSecond - firstSecond);
        const std::string text = written(seconds);
        const std::optional<Instant> read = json::instantFromDateText(text);
        if (!read || read->secondsSince1970() != std::floor(seconds) ||
            secondsOfDateText(text) != std::floor(seconds)) {
            FAIL() << std::hexfloat << seconds;
        }
    }
}

TEST(EveryInstant, isReadWithEveryOffset)
{
    std::uint64_t count = 0;
    const std::vector<std::string> texts = {"0001-01-01T00:00:00", "1970-01-01T00:00:00",
                                            "2000-02-29T23:59:59", "2026-11-15T15:00:00",
                                            "9998-12-31T12:34:56"};
    for (int offset = -1439; offset <= 1439; ++offset) {
        char suffix[8];
        std::snprintf(suffix, sizeof suffix, "%c%02u:%02u", offset < 0 ? '-' : '+',
                      static_cast<unsigned>(std::abs(offset)) / 60 % 24U,
                      static_cast<unsigned>(std::abs(offset)) % 60U);
        for (const std::string& text : texts) {
            const std::optional<Instant> read = json::instantFromDateText(text + suffix);
            ASSERT_TRUE(read) << text << suffix;
            const double utc = *secondsOfDateText(text + "Z");
            ASSERT_EQ(read->secondsSince1970(), utc - offset * 60.0) << text << suffix;
            ASSERT_EQ(json::instantFromDateText(written(utc - offset * 60.0)), read);
            ++count;
        }
    }
    reportFigure("Round trip", "texts with an offset", count);
}

TEST(EveryInstant, isRefusedBeyondTheCalendar)
{
    EXPECT_EQ(written(firstSecond), "0000-01-01T00:00:00Z");
    EXPECT_EQ(written(std::nextafter(endSecond, 0)), "9999-12-31T23:59:59Z");
    for (const double seconds :
         {std::nextafter(firstSecond, -infinity), firstSecond - 1, endSecond, 0x1p63, -0x1p63,
          std::numeric_limits<double>::max(), infinity, -infinity, notANumber}) {
        EXPECT_EQ(written(seconds), "refused") << seconds;
        EXPECT_TRUE(encodingError(QuillmereState::initial(Instant(seconds)))) << seconds;
    }
}

/// Every month and day of two digits, in every kind of year.
TEST(EveryInstant, isReadOnDaysOfTheCalendarOnly)
{
    std::uint64_t accepted = 0;
    for (const std::int64_t year : {0, 1, 4, 100, 400, 1582, 1900, 2000, 2023, 2024, 2100, 9996, 9999}) {
        std::string text = "0000-00-00T12:00:00Z";
        putDigits(text, 0, 4, year);
        for (std::int64_t monthAndDay = 0; monthAndDay < 10'000; ++monthAndDay) {
            putDigits(text, 5, 2, monthAndDay / 100);
            putDigits(text, 8, 2, monthAndDay % 100);
            const std::optional<Instant> read = json::instantFromDateText(text);
            const std::optional<double> expected = secondsOfDateText(text);
            ASSERT_EQ(read.has_value(), expected.has_value()) << text;
            ASSERT_TRUE(!read || read->secondsSince1970() == *expected) << text;
            accepted += read ? 1 : 0;
        }
        accepted -= isLeapYear(year) ? 366 : 365;
    }
    EXPECT_EQ(accepted, 0U);
}

}  // namespace
}  // namespace quillmere::test
