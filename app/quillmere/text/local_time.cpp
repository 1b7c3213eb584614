#include "text/local_time.hpp"

#include "text/duration.hpp"

#include <time.h>

#include <array>
#include <cmath>

namespace quillmere::app {
namespace {

std::tm localFields(Instant instant)
{
    const auto seconds = static_cast<std::time_t>(std::floor(instant.secondsSince1970()));
    std::tm fields{};
    ::localtime_r(&seconds, &fields);
    return fields;
}

std::string formatted(Instant instant, const char* format)
{
    const std::tm fields = localFields(instant);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &fields)};
}

/// Absent when the local clocks never show this.
std::optional<Instant> instantOf(std::tm fields)
{
    fields.tm_sec = 0;
    fields.tm_isdst = -1;
    std::tm normalised = fields;
    const std::time_t seconds = std::mktime(&normalised);
    const bool isReal = normalised.tm_year == fields.tm_year && normalised.tm_mon == fields.tm_mon &&
                        normalised.tm_mday == fields.tm_mday && normalised.tm_hour == fields.tm_hour &&
                        normalised.tm_min == fields.tm_min;
    return isReal ? std::optional(Instant(static_cast<double>(seconds))) : std::nullopt;
}

/// Fills in the fields of a whole text; the format is that of strptime(3).
bool scan(std::string_view text, const char* format, std::tm& fields)
{
    const std::string copy(text);
    const char* const end = ::strptime(copy.c_str(), format, &fields);
    return end && end == copy.c_str() + copy.size();
}

std::optional<Instant> nextTimeOfDay(const std::tm& fields, Instant now)
{
    // Today it may be over, and tomorrow the clocks may skip it.
    for (const int daysLater : {0, 1, 2}) {
        std::tm day = fields;
        day.tm_mday += daysLater;
        // Into the next month, where it is the last day of one.
        day.tm_isdst = -1;
        day.tm_hour = 12;
        std::mktime(&day);
        day.tm_hour = fields.tm_hour;
        const std::optional<Instant> instant = instantOf(day);
        if (instant && *instant >= now) {
            return instant;
        }
    }
    return std::nullopt;
}

}  // namespace

std::string localText(Instant instant) { return formatted(instant, "%Y-%m-%d %H:%M"); }

std::string localClockText(Instant instant) { return formatted(instant, "%H:%M"); }

std::optional<Instant> instantFromLocalText(std::string_view text, Instant now)
{
    if (text.substr(0, 1) == "+") {
        const std::optional<double> delay = durationFromText(text.substr(1));
        return delay ? std::optional(now + *delay) : std::nullopt;
    }
    std::tm fields = localFields(now);
    if (scan(text, "%Y-%m-%d %H:%M", fields) || scan(text, "%Y-%m-%dT%H:%M", fields)) {
        return instantOf(fields);
    }
    fields = localFields(now);
    return scan(text, "%H:%M", fields) ? nextTimeOfDay(fields, now) : std::nullopt;
}

}  // namespace quillmere::app
