// Instants in JSON: whole seconds in UTC.
#include <quillmere/records/agent_question.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <gtest/gtest.h>
#include <time.h>

#include <cmath>
#include <random>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

AgentQuestion askedAt(double secondsSince1970)
{
    return {.id = test::identifier(1),
            .question = "",
            .createdAt = Instant(secondsSince1970),
            .answer = std::nullopt,
            .answeredAt = std::nullopt};
}

/// The text in a file, without the quotes.
std::string written(double secondsSince1970)
{
    const std::string text = test::compactText(askedAt(secondsSince1970));
    const std::string quoted = test::scalarOf(text, "created_at");
    return quoted.substr(1, quoted.size() - 2);
}

constexpr double firstSecond = -62'167'219'200;  // of the year 0000
constexpr double endSecond = 253'402'300'800;    // of the year 9999

TEST(WrittenInstant, isDateTimeTextOfWholeSecondsInUtc)
{
    constexpr struct {
        double seconds;
        std::string_view text;
    } rows[] = {
        {1794754800, "2026-11-15T15:00:00Z"},
        {0, "1970-01-01T00:00:00Z"},
        {-0.0, "1970-01-01T00:00:00Z"},
        {59, "1970-01-01T00:00:59Z"},
        {3600, "1970-01-01T01:00:00Z"},
        {86'399, "1970-01-01T23:59:59Z"},
        {86'400, "1970-01-02T00:00:00Z"},
        {-1, "1969-12-31T23:59:59Z"},
        {-86'400, "1969-12-31T00:00:00Z"},
        {951'782'400, "2000-02-29T00:00:00Z"},
        {951'868'800, "2000-03-01T00:00:00Z"},
        {1'709'164'800, "2024-02-29T00:00:00Z"},
        {1'709'251'199, "2024-02-29T23:59:59Z"},
        {-2'203'977'600, "1900-02-28T00:00:00Z"},
        {-2'203'891'200, "1900-03-01T00:00:00Z"},
        {4'107'456'000, "2100-02-28T00:00:00Z"},
        {4'107'542'400, "2100-03-01T00:00:00Z"},
        {2'147'483'648, "2038-01-19T03:14:08Z"},
        {-12'219'292'801, "1582-10-14T23:59:59Z"},
        {firstSecond, "0000-01-01T00:00:00Z"},
        {firstSecond + 59 * 86'400, "0000-02-29T00:00:00Z"},
        {firstSecond + 366 * 86'400, "0001-01-01T00:00:00Z"},
        {endSecond - 1, "9999-12-31T23:59:59Z"},
    };
    for (const auto& [seconds, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(written(seconds), text);
    }
}

TEST(WrittenInstant, dropsTheFractionTowardThePast)
{
    constexpr struct {
        double seconds;
        std::string_view text;
    } rows[] = {
        {1794754800.75, "2026-11-15T15:00:00Z"},
        {1794754800.9999998, "2026-11-15T15:00:00Z"},
        {86'399.5, "1970-01-01T23:59:59Z"},
        {0.999, "1970-01-01T00:00:00Z"},
        {5e-324, "1970-01-01T00:00:00Z"},
        {-5e-324, "1969-12-31T23:59:59Z"},
        {-0.5, "1969-12-31T23:59:59Z"},
        {-1.5, "1969-12-31T23:59:58Z"},
        {-86'400.5, "1969-12-30T23:59:59Z"},
        {firstSecond + 0.5, "0000-01-01T00:00:00Z"},
        {endSecond - 0.5, "9999-12-31T23:59:59Z"},
    };
    for (const auto& [seconds, text] : rows) {
        SCOPED_TRACE(seconds);
        EXPECT_EQ(written(seconds), text);
    }
    // 23:59:59.5 on a leap day stays on that day.
    EXPECT_EQ(written(1'709'251'199.5), "2024-02-29T23:59:59Z");
}

TEST(WrittenInstant, withAFractionReadsBackAsAWholeSecond)
{
    for (const double seconds : {1794754800.75, 0.5, -0.5, -1.25}) {
        const AgentQuestion question = test::decoded<AgentQuestion>(test::compactText(askedAt(seconds)));
        EXPECT_EQ(question.createdAt, Instant(std::floor(seconds)));
    }
}

TEST(WrittenInstant, isWhatTheSystemsCalendarSays)
{
    std::mt19937_64 random(7);
    for (int count = 0; count < 10'000; ++count) {
        const auto span = static_cast<std::uint64_t>(endSecond - firstSecond);
        const auto seconds = static_cast<time_t>(firstSecond) + static_cast<time_t>(random() % span);
        tm parts{};
        ASSERT_NE(::gmtime_r(&seconds, &parts), nullptr);
        char expected[80];
        std::snprintf(expected, sizeof expected, "%04d-%02d-%02dT%02d:%02d:%02dZ", parts.tm_year + 1900,
                      parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec);
        const std::string text = written(static_cast<double>(seconds));
        ASSERT_EQ(text, expected);
        const auto back =
            test::decoded<AgentQuestion>(test::compactText(askedAt(static_cast<double>(seconds))));
        ASSERT_EQ(back.createdAt, Instant(static_cast<double>(seconds)));
    }
}

TEST(WrittenInstant, isTheFirstAndTheLastSecondOfEveryYear)
{
    // Adds up the years by the leap year rule.
    double start = firstSecond;
    for (int year = 0; year <= 9999; ++year) {
        const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        const double next = start + (isLeap ? 366 : 365) * 86'400.0;
        char digits[16];
        std::snprintf(digits, sizeof digits, "%04d", year);
        ASSERT_EQ(written(start), digits + std::string("-01-01T00:00:00Z"));
        ASSERT_EQ(written(next - 1), digits + std::string("-12-31T23:59:59Z"));
        start = next;
    }
    EXPECT_EQ(start, endSecond);
}

TEST(WrittenInstant, isAnErrorOutsideOfTheYears0000To9999AndWhenNotFinite)
{
    const double instants[] = {endSecond, firstSecond - 0.5, firstSecond - 1, 1e12, -1e12, 1e18, 1e19, -1e19,
                               1e300, -1e300, HUGE_VAL, -HUGE_VAL, std::nan(""),
                               // The double just before the first second.
                               std::nextafter(firstSecond, -HUGE_VAL)};
    for (const double seconds : instants) {
        SCOPED_TRACE(seconds);
        const auto error = test::encodingError(askedAt(seconds));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "created_at");
        EXPECT_EQ(error->reason(), "an instant that is not finite or lies outside the years 0000 to 9999");
    }
    EXPECT_FALSE(test::encodingError(askedAt(std::nextafter(endSecond, 0.0))));
}

TEST(DateText, isTheTextThatStandsInFiles)
{
    for (const double seconds : {0.0, 0.9, -0.1, 1794754800.0, firstSecond, endSecond - 1}) {
        EXPECT_EQ(json::dateText(Instant(seconds)), written(seconds));
    }
}

TEST(DateText, isAnErrorForAnInstantThatCannotBeWritten)
{
    for (const double seconds : {endSecond, firstSecond - 1, HUGE_VAL, std::nan("")}) {
        EXPECT_THROW(json::dateText(Instant(seconds)), EncodingError);
    }
}

}  // namespace
}  // namespace quillmere
