#include "base/text/duration.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <span>

namespace quillmere::base {
namespace {

struct Unit {
    char letter;
    std::int64_t seconds;
    std::string_view name;
};

constexpr auto units = std::to_array<Unit>({
    {'d', 86'400, "d"},
    {'h', 3'600, "h"},
    {'m', 60, "min"},
    {'s', 1, "s"},
});

/// Removes a whole number from the front of `text`.
std::optional<std::int64_t> takeNumber(std::string_view& text)
{
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || text.front() == '-') {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

/// Whole numbers of these units, without the units that are zero; the rest is left out.
std::string inUnits(std::span<const Unit> chosen, double seconds)
{
    auto left = static_cast<std::int64_t>(std::floor(seconds));
    std::string text;
    for (const Unit& unit : chosen) {
        const std::int64_t count = left / unit.seconds;
        left -= count * unit.seconds;
        if (count > 0) {
            text += (text.empty() ? "" : " ") + std::to_string(count) + " " + std::string(unit.name);
        }
    }
    return text;
}

bool isAcceptable(double seconds) { return seconds >= shortestDuration && seconds <= longestDuration; }

}  // namespace

std::optional<double> durationFromText(std::string_view text)
{
    double seconds = 0;
    std::size_t nextUnit = 0;
    const bool isBare = text.find_first_not_of("0123456789") == std::string_view::npos;
    do {
        const std::optional<std::int64_t> number = takeNumber(text);
        if (!number) {
            return std::nullopt;
        }
        const char letter = isBare ? 'm' : text.empty() ? '\0' : text.front();
        while (nextUnit < units.size() && units[nextUnit].letter != letter) {
            ++nextUnit;
        }
        if (nextUnit == units.size()) {
            return std::nullopt;
        }
        seconds += static_cast<double>(*number) * static_cast<double>(units[nextUnit++].seconds);
        text.remove_prefix(isBare ? 0 : 1);
    } while (!text.empty());
    return isAcceptable(seconds) ? std::optional(seconds) : std::nullopt;
}

std::string durationText(double seconds)
{
    const std::string text = inUnits(units, seconds);
    return text.empty() ? "0 s" : text;
}

std::string durationAsTyped(double seconds)
{
    std::string text;
    for (const char character : durationText(seconds)) {
        // The first letter of a unit's name is enough.
        const bool isRestOfUnit = character >= 'a' && !text.empty() && text.back() >= 'a';
        text += character == ' ' || isRestOfUnit ? std::string() : std::string(1, character);
    }
    return text;
}

std::string hoursText(double seconds)
{
    const std::string text = inUnits(std::span(units).subspan<1, 2>(), seconds);
    return text.empty() ? "0 min" : text;
}

}  // namespace quillmere::base
