#include "base/text/local_time.hpp"

#include "base/text/duration.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <vector>

namespace quillmere::base {
namespace {

std::string formatted(Instant instant, const char* format)
{
    const std::tm fields = localFields(instant);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &fields)};
}

bool showTheSame(const std::tm& left, const std::tm& right)
{
    return left.tm_year == right.tm_year && left.tm_mon == right.tm_mon && left.tm_mday == right.tm_mday &&
           left.tm_hour == right.tm_hour && left.tm_min == right.tm_min;
}

/// The next instant at which local clocks show these fields, or the last one if all are past. Absent if they
/// never show them.
std::optional<Instant> instantOf(const std::tm& fields, Instant now)
{
    std::vector<Instant> readings;
    // When summer time ends, the same hour occurs once with it and once without.
    for (const int summerTime : {-1, 0, 1}) {
        std::tm normalised = fields;
        normalised.tm_sec = 0;
        normalised.tm_isdst = summerTime;
        const Instant instant(static_cast<double>(std::mktime(&normalised)));
        if (showTheSame(normalised, fields) && json::hasDateText(instant)) {
            readings.push_back(instant);
        }
    }
    std::sort(readings.begin(), readings.end());
    const auto next = std::lower_bound(readings.begin(), readings.end(), now);
    if (next != readings.end()) {
        return *next;
    }
    return readings.empty() ? std::nullopt : std::optional(readings.back());
}

/// Reads the whole text into `fields`; `format` as for strptime(3).
bool scan(std::string_view text, const char* format, std::tm& fields)
{
    const std::string copy(text);
    const char* const end = ::strptime(copy.c_str(), format, &fields);
    return end && end == copy.c_str() + copy.size();
}

std::optional<Instant> nextTimeOfDay(const std::tm& fields, Instant now)
{
    // It may be past today, and the clocks may skip it tomorrow.
    for (const int daysLater : {0, 1, 2}) {
        std::tm day = fields;
        day.tm_mday += daysLater;
        // mktime moves a day past the end of the month into the next one; noon exists on every day.
        day.tm_isdst = -1;
        day.tm_hour = 12;
        std::mktime(&day);
        day.tm_hour = fields.tm_hour;
        const std::optional<Instant> instant = instantOf(day, now);
        if (instant && *instant >= now) {
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
std::string localDayText(Instant instant) { return formatted(instant, "%04Y-%m-%d"); }

std::string localText(Instant instant) { return formatted(instant, "%04Y-%m-%d %H:%M"); }

std::string localTextToTheSecond(Instant instant) { return formatted(instant, "%04Y-%m-%d %H:%M:%S"); }

std::string localClockText(Instant instant) { return formatted(instant, "%H:%M"); }

std::string localTextSeenFrom(Instant now, Instant instant)
{
    const bool isThatDay = localDayText(instant) == localDayText(now);
    return isThatDay ? localClockText(instant) : localText(instant);
}

std::optional<Instant> instantFromLocalText(std::string_view text, Instant now)
{
    if (text.substr(0, 1) == "+") {
        const std::optional<double> delay = durationFromText(text.substr(1));
        return delay && json::hasDateText(now + *delay) ? std::optional(now + *delay) : std::nullopt;
    }
    std::tm fields = localFields(now);
    if (scan(text, "%Y-%m-%d %H:%M", fields) || scan(text, "%Y-%m-%dT%H:%M", fields)) {
        return instantOf(fields, now);
    }
    fields = localFields(now);
    return scan(text, "%H:%M", fields) ? nextTimeOfDay(fields, now) : std::nullopt;
}

}  // namespace quillmere::base
