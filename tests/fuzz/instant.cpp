// Instants as text, compared with an independent calendar.
#include <quillmere/records/json/date_text.hpp>

#include <cmath>
#include <cstring>
#include <string>

#include "fuzz/fuzz_target.hpp"
#include "proofs/values/calendar_check.hpp"

namespace quillmere::test {
namespace {

constexpr double firstSecond = -62'167'219'200;  // 0000-01-01T00:00:00Z
constexpr double endSecond = 253'402'300'800;    // 10000-01-01T00:00:00Z

bool isWritable(double seconds) { return seconds >= firstSecond && seconds < endSecond; }

std::optional<std::string> written(double seconds)
{
    if (!json::hasDateText(Instant(seconds))) {
        return std::nullopt;
    }
    std::string text(json::dateTextLength, '?');
    json::putDateText(text.data(), Instant(seconds));
    return text;
}

void readText(std::string_view text)
{
    const std::optional<Instant> instant = json::instantFromDateText(text);
    require(instant.has_value() == secondsOfDateText(text).has_value(),
            "exactly the calendar's days are read");
    if (!instant) {
        return;
    }
    const double seconds = instant->secondsSince1970();
    require(seconds == *secondsOfDateText(text), "an instant is what the calendar says");
    const std::optional<std::string> normal = written(seconds);
    require(normal.has_value() == isWritable(seconds), "an instant of the years 0000 to 9999 can be written");
    if (normal) {
        require(normal->back() == 'Z', "the normal form is in UTC");
        require(json::instantFromDateText(*normal) == instant, "the normal form reads equal");
        require(text.back() != 'Z' || *normal == text, "a text in UTC is its own normal form");
    }
}

void writeNumber(double seconds)
{
    const std::optional<std::string> text = written(seconds);
    require(text.has_value() == isWritable(seconds), "an instant is written within the years 0000 to 9999");
    if (text) {
        require(json::instantFromDateText(*text) == Instant(std::floor(seconds)),
                "an instant loses its fraction toward the past, and nothing else");
    }
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::readText(quillmere::test::textOf(data, size));
    double seconds = 0;
    if (size >= sizeof seconds) {
        std::memcpy(&seconds, data, sizeof seconds);
        quillmere::test::writeNumber(seconds);
    }
    return 0;
}
