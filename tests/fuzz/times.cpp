// Times and spans as a person types them.
//
// The first byte chooses the time zone, the next four the present. The rest is the text.
#include "base/text/local_time.hpp"
#include "base/text/lower_case.hpp"
#include "base/text/typed_time.hpp"
#include "figures/span.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <stdlib.h>
#include <time.h>

#include <array>
#include <cmath>
#include <optional>
#include <string>

#include "fuzz/draws.hpp"
#include "fuzz/fuzz_target.hpp"

namespace quillmere::test {
namespace {

void chooseZone(std::size_t number)
{
    // With daylight saving, without, with a day that was left out, and with half an hour of daylight saving.
    static constexpr auto zones =
        std::to_array<const char*>({"Europe/Berlin", "UTC", "Pacific/Apia", "Australia/Lord_Howe"});
    ::setenv("TZ", zones.at(number % zones.size()), 1);
    ::tzset();
}

/// From 1970 to 2106.
Instant drawnPresent(Draws& draws)
{
    double seconds = 0;
    for (int count = 0; count < 4; ++count) {
        seconds = seconds * 256 + draws.byte();
    }
    return Instant(seconds + 0.5);
}

/// The same minute, as the clock shows it, on the day that is written out.
void requireReadBack(Instant instant)
{
    const Instant minute = instant - base::localFields(instant).tm_sec;
    if (!json::hasDateText(minute)) {
        return;  // the first minute of the year 0000, where the zone has odd seconds
    }
    const std::string text = base::localText(minute);
    require(base::instantFromLocalText(text, minute) == minute,
            "a time that is written reads as the next one");
    require(base::pastInstantFromLocalText(text, minute) == minute, "and as the last one");
    require(!base::localTextInFull(minute).empty(), "a time is said in full");
}

void readTime(const std::string& text, Instant now)
{
    for (const auto read : {base::instantFromLocalText, base::pastInstantFromLocalText}) {
        const std::optional<Instant> instant = read(text, now);
        require(read(base::lowerCase(text), now) == instant, "the case of letters does not matter");
        if (instant) {
            require(json::hasDateText(*instant), "a time that is read can be written to a file");
            requireReadBack(Instant(std::floor(instant->secondsSince1970())));
        }
    }
}

void readSpan(const std::string& text, Instant now)
{
    const figures::Day today = figures::LocalCalendar().dayOf(now);
    const std::optional<figures::Range> span = figures::spanFromText(text, today);
    require(span.has_value() == figures::spanFromText(base::lowerCase(text), today).has_value(),
            "the case of letters does not matter in spans either");
    if (span) {
        require(span->since && span->until && *span->since <= *span->until, "a span begins before it ends");
    }
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quillmere::test;
    constexpr std::size_t headLength = 5;
    Draws draws(data, size);
    chooseZone(draws.byte());
    const quillmere::Instant now = drawnPresent(draws);
    const std::string text(size > headLength ? textOf(data + headLength, size - headLength)
                                             : std::string_view());
    readTime(text, now);
    readSpan(text, now);
    return 0;
}
