#include "base/text/local_time.hpp"

#include "base/text/calendar_text.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <ctime>

namespace quillmere::base {
namespace {

namespace chrono = std::chrono;

std::string formatted(const std::tm& fields, const char* format)
{
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &fields)};
}

/// "16:00" or "4:00 pm"; the minutes, or the minutes and seconds, by `format`.
std::string clockText(const std::tm& fields, Hours hours, const char* format)
{
    const std::string rest = formatted(fields, format);
    if (hours == Hours::twentyFour) {
        return formatted(fields, "%H") + rest;
    }
    // strftime(3) would take the words from the locale.
    return std::to_string((fields.tm_hour + 11) % 12 + 1) + rest + (fields.tm_hour < 12 ? " am" : " pm");
}

std::string clockText(Instant instant, Hours hours, const char* format)
{
    return clockText(localFields(instant), hours, format);
}

constexpr const char* minutes = ":%M";
constexpr const char* minutesAndSeconds = ":%M:%S";

std::string formatted(Instant instant, const char* format) { return formatted(localFields(instant), format); }

/// Seconds by which local clocks are ahead of UTC.
std::int64_t offsetAt(Instant instant) { return localFields(instant).tm_gmtoff; }

/// More than the offset of any zone, and than any change of the clocks.
constexpr double dayAround = 26 * 3600;

/// The time that the clocks skip, if at this instant they would show it without their change.
std::string skippedTime(Instant instant, Hours hours)
{
    const std::int64_t before = offsetAt(instant - dayAround);
    const auto gap = static_cast<double>(offsetAt(instant) - before);
    if (!(gap > 0) || offsetAt(instant - gap) != before) {
        return {};
    }
    const auto shown =
        static_cast<std::time_t>(std::floor(instant.secondsSince1970())) + static_cast<std::time_t>(before);
    std::tm fields{};
    ::gmtime_r(&shown, &fields);
    return clockText(fields, hours, minutes);
}

/// Says what a change of the clocks makes of a local time; empty elsewhere.
std::string clockChangeText(Instant instant, Hours hours)
{
    const Instant second(std::floor(instant.secondsSince1970()));
    const auto sinceEpoch = static_cast<std::int64_t>(second.secondsSince1970()) + offsetAt(second);
    const std::vector<Instant> instants =
        instantsOfLocalTime(chrono::local_seconds(chrono::seconds(sinceEpoch)));
    if (instants.size() > 1) {
        return std::string(" (the ") + (second == instants.front() ? "first" : "second") +
               " of two: the clocks are set back that day)";
    }
    const std::string skipped = skippedTime(second, hours);
    return skipped.empty() ? "" : " (the clocks are set forward that day, and " + skipped + " is left out)";
}

std::string inFull(Instant instant, Hours hours, const char* clockFormat)
{
    const chrono::local_days day = localDayOf(instant);
    const chrono::year_month_day date(day);
    return std::string(weekdayText(chrono::weekday(day))) + " " +
           std::to_string(static_cast<unsigned>(date.day())) + " " + std::string(monthText(date.month())) +
           formatted(instant, " %04Y, ") + clockText(instant, hours, clockFormat) +
           clockChangeText(instant, hours);
}

}  // namespace

std::tm localFields(Instant instant)
{
    const auto seconds = static_cast<std::time_t>(std::floor(instant.secondsSince1970()));
    std::tm fields{};
    ::localtime_r(&seconds, &fields);
    return fields;
}

chrono::local_days localDayOf(Instant instant) { return localDayOf(localFields(instant)); }

chrono::local_days localDayOf(const std::tm& fields)
{
    return chrono::local_days(chrono::year(fields.tm_year + 1900) /
                              chrono::month(static_cast<unsigned>(fields.tm_mon + 1)) /
                              chrono::day(static_cast<unsigned>(fields.tm_mday)));
}

std::vector<Instant> instantsOfLocalTime(chrono::local_seconds time)
{
    const auto inUtc = static_cast<double>(time.time_since_epoch().count());
    std::vector<Instant> instants;
    Instant unchanged(inUtc);
    // The offset may change once within the two days around; the time is then counted before or after.
    for (const double around : {dayAround, 0.0, -dayAround}) {
        const std::int64_t offset = offsetAt(Instant(inUtc + around));
        const Instant instant(inUtc - static_cast<double>(offset));
        unchanged = instant;
        if (offsetAt(instant) == offset) {
            instants.push_back(instant);
        }
    }
    if (instants.empty()) {
        return {unchanged};
    }
    std::sort(instants.begin(), instants.end());
    instants.erase(std::unique(instants.begin(), instants.end()), instants.end());
    return instants;
}

// The C library pads a year before 1000 only when it is told to.
std::string localDayText(Instant instant) { return formatted(localFields(instant), "%04Y-%m-%d"); }

std::string localText(Instant instant, Hours hours)
{
    return localDayText(instant) + " " + localClockText(instant, hours);
}

std::string localTextToTheSecond(Instant instant, Hours hours)
{
    return localDayText(instant) + " " + clockText(instant, hours, minutesAndSeconds);
}

std::string localClockText(Instant instant, Hours hours) { return clockText(instant, hours, minutes); }

std::string localTextSeenFrom(const SeenFrom& here, Instant instant)
{
    const bool isThatDay = localDayText(instant) == localDayText(here.now);
    return isThatDay ? localClockText(instant, here.hours) : localText(instant, here.hours);
}

std::string localTextWithin(const SeenFrom& here, Instant instant)
{
    constexpr chrono::days week(7);
    const chrono::local_days day = localDayOf(instant);
    const chrono::days away = chrono::abs(day - localDayOf(here.now));
    return away == chrono::days(0) || away >= week
               ? localTextSeenFrom(here, instant)
               : std::string(weekdayText(chrono::weekday(day))) + " " + localClockText(instant, here.hours);
}

std::string localSecondSeenFrom(const SeenFrom& here, Instant instant)
{
    const bool isThatDay = localDayText(instant) == localDayText(here.now);
    return isThatDay ? clockText(instant, here.hours, minutesAndSeconds)
                     : localTextToTheSecond(instant, here.hours);
}

std::string localTextInFull(Instant instant, Hours hours) { return inFull(instant, hours, minutes); }

std::string localSecondInFull(Instant instant, Hours hours)
{
    return inFull(instant, hours, localFields(instant).tm_sec == 0 ? minutes : minutesAndSeconds);
}

}  // namespace quillmere::base
