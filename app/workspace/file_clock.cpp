#include "workspace/file_clock.hpp"

#include "base/refusal.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <array>
#include <cmath>
#include <ctime>
#include <string>
#include <utility>

namespace quillmere::workspace {
namespace {

/// "12026-11-22 09:15:00 UTC".
std::string readingText(Instant reading)
{
    constexpr double mostSeconds = 1e16;  // the C library counts years in 32 bits
    if (!(std::abs(reading.secondsSince1970()) <= mostSeconds)) {
        return "no year of a calendar";
    }
    const auto seconds = static_cast<std::time_t>(std::floor(reading.secondsSince1970()));
    std::tm fields{};
    ::gmtime_r(&seconds, &fields);
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S UTC", &fields)};
}

[[noreturn]] void refuse(Instant reading)
{
    throw base::Refusal(base::Refusal::Kind::fileError,
                        "The clock of this system shows " + readingText(reading) +
                            ", and files have dates of the years 0000 to 9999 only. Set the clock, then try "
                            "again.");
}

}  // namespace

Clock fileClock(Clock clock)
{
    return [clock = std::move(clock)] {
        const Instant reading = clock();
        if (!json::hasDateText(reading)) {
            refuse(reading);
        }
        return Instant(std::floor(reading.secondsSince1970()));
    };
}

}  // namespace quillmere::workspace
