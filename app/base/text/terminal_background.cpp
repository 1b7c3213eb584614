#include "base/text/terminal_background.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quillmere::base {
namespace {

/// The share of a part of a colour, of one to four hexadecimal digits (XParseColor(3)).
std::optional<double> shareOf(std::string_view digits)
{
    unsigned value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
    if (error != std::errc() || stop != end || digits.size() > 4) {
        return std::nullopt;
    }
    return value / (std::pow(16.0, static_cast<double>(digits.size())) - 1);
}

/// White text has as much contrast as black text on a background of this luminance (WCAG 2.2).
constexpr double betweenDarkAndLight = 0.179;

double linear(double share)
{
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

}  // namespace

std::optional<Background> backgroundFrom(std::string_view answer)
{
    const std::size_t colon = answer.find(':');
    const std::string_view form = answer.substr(0, colon);
    if (colon == std::string_view::npos || (form != "11;rgb" && form != "11;rgba")) {
        return std::nullopt;
    }
    constexpr std::array<double, 3> weights = {0.2126, 0.7152, 0.0722};
    std::string_view rest = answer.substr(colon + 1);
    double luminance = 0;
    for (const double weight : weights) {
        const std::string_view digits = rest.substr(0, rest.find('/'));
        const std::optional<double> share = shareOf(digits);
        if (!share) {
            return std::nullopt;
        }
        luminance += weight * linear(*share);
        rest.remove_prefix(std::min(rest.size(), digits.size() + 1));
    }
    return luminance > betweenDarkAndLight ? Background::light : Background::dark;
}

}  // namespace quillmere::base
