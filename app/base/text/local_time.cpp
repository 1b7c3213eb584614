#include "base/text/local_time.hpp"

#include "base/text/duration.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <iterator>
#include <vector>

namespace quillmere::base {
namespace {

std::string formatted(const std::tm& fields, const char* format)
{
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &fields)};
}

/// "16:00" or "4:00 pm"; the minutes, or the minutes and seconds, by `format`.
std::string clockText(Instant instant, Hours hours, const char* format)
{
    const std::tm fields = localFields(instant);
    const std::string rest = formatted(fields, format);
    if (hours == Hours::twentyFour) {
        return formatted(fields, "%H") + rest;
    }
    // strftime(3) would take the words from the locale.
    return std::to_string((fields.tm_hour + 11) % 12 + 1) + rest + (fields.tm_hour < 12 ? " am" : " pm");
}

constexpr const char* minutes = ":%M";
constexpr const char* minutesAndSeconds = ":%M:%S";

bool showTheSame(const std::tm& left, const std::tm& right)
{
    return left.tm_year == right.tm_year && left.tm_mon == right.tm_mon && left.tm_mday == right.tm_mday &&
           left.tm_hour == right.tm_hour && left.tm_min == right.tm_min;
}

/// The instants at which local clocks show these fields, in order.
std::vector<Instant> readingsOf(const std::tm& fields)
{
    std::vector<Instant> readings;
    // When summer time ends, the same hour occurs once with it and once without.
    for (const int summerTime : {-1, 0, 1}) {
        std::tm normalised = fields;
        normalised.tm_isdst = summerTime;
        const Instant instant(static_cast<double>(std::mktime(&normalised)));
        if (showTheSame(normalised, fields) && json::hasDateText(instant)) {
            readings.push_back(instant);
        }
    }
    std::sort(readings.begin(), readings.end());
    return readings;
}

/// The next instant at which local clocks show these fields, or the last one if all are past. Absent if they
/// never show them.
std::optional<Instant> instantOf(const std::tm& fields, Instant now)
{
    const std::vector<Instant> readings = readingsOf(fields);
    const auto next = std::lower_bound(readings.begin(), readings.end(), now);
    if (next != readings.end()) {
        return *next;
    }
    return readings.empty() ? std::nullopt : std::optional(readings.back());
}

/// The last instant that is not after `now`, or the first one if all are yet to come.
std::optional<Instant> pastInstantOf(const std::tm& fields, Instant now)
{
    const std::vector<Instant> readings = readingsOf(fields);
    const auto next = std::upper_bound(readings.begin(), readings.end(), now);
    if (next != readings.begin()) {
        return *std::prev(next);
    }
    return readings.empty() ? std::nullopt : std::optional(readings.front());
}

/// The local fields of `now`, with no seconds: what a text leaves out.
std::tm fieldsBeside(Instant now)
{
    std::tm fields = localFields(now);
    fields.tm_sec = 0;
    return fields;
}

/// Reads the whole text into `fields`; `format` as for strptime(3).
bool scan(std::string_view text, const char* format, std::tm& fields)
{
    const std::string copy(text);
    const char* const end = ::strptime(copy.c_str(), format, &fields);
    return end && end == copy.c_str() + copy.size();
}

/// The same time of day, some days later or earlier.
std::tm onAnotherDay(const std::tm& fields, int daysLater)
{
    std::tm day = fields;
    day.tm_mday += daysLater;
    // mktime moves a day past the end of the month into the next one; noon exists on every day.
    day.tm_isdst = -1;
    day.tm_hour = 12;
    std::mktime(&day);
    day.tm_hour = fields.tm_hour;
    return day;
}

std::optional<Instant> nextTimeOfDay(const std::tm& fields, Instant now)
{
    // It may be past today, and the clocks may skip it tomorrow.
    for (const int daysLater : {0, 1, 2}) {
        const std::optional<Instant> instant = instantOf(onAnotherDay(fields, daysLater), now);
        if (instant && *instant >= now) {
            return instant;
        }
    }
    return std::nullopt;
}

std::optional<Instant> lastTimeOfDay(const std::tm& fields, Instant now)
{
    for (const int daysLater : {0, -1, -2}) {
        const std::optional<Instant> instant = pastInstantOf(onAnotherDay(fields, daysLater), now);
        if (instant && *instant <= now) {
            return instant;
        }
    }
    return std::nullopt;
}

}  // namespace

std::tm localFields(Instant instant)
{
    const auto seconds = static_cast<std::time_t>(std::floor(instant.secondsSince1970()));
    std::tm fields{};
    ::localtime_r(&seconds, &fields);
    return fields;
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

std::string localSecondSeenFrom(const SeenFrom& here, Instant instant)
{
    const bool isThatDay = localDayText(instant) == localDayText(here.now);
    return isThatDay ? clockText(instant, here.hours, minutesAndSeconds)
                     : localTextToTheSecond(instant, here.hours);
}

std::optional<Instant> instantFromLocalText(std::string_view text, Instant now)
{
    if (text.substr(0, 1) == "+") {
        const std::optional<double> delay = durationFromText(text.substr(1));
        return delay && json::hasDateText(now + *delay) ? std::optional(now + *delay) : std::nullopt;
    }
    std::tm fields = fieldsBeside(now);
    if (scan(text, "%Y-%m-%d %H:%M", fields) || scan(text, "%Y-%m-%dT%H:%M", fields)) {
        return instantOf(fields, now);
    }
    fields = fieldsBeside(now);
    return scan(text, "%H:%M", fields) ? nextTimeOfDay(fields, now) : std::nullopt;
}

std::optional<Instant> pastInstantFromLocalText(std::string_view text, Instant now)
{
    for (const char* const day :
         {"%Y-%m-%d %H:%M", "%Y-%m-%dT%H:%M", "%Y-%m-%d %H:%M:%S", "%Y-%m-%dT%H:%M:%S"}) {
        std::tm fields = fieldsBeside(now);
        if (scan(text, day, fields)) {
            return pastInstantOf(fields, now);
        }
    }
    for (const char* const time : {"%H:%M", "%H:%M:%S"}) {
        std::tm fields = fieldsBeside(now);
        if (scan(text, time, fields)) {
            return lastTimeOfDay(fields, now);
        }
    }
    return std::nullopt;
}

}  // namespace quillmere::base
