#include "doctor/words.hpp"

#include "base/text/count.hpp"

#include <array>
#include <string_view>

namespace quillmere::doctor {

std::string sizeText(std::uintmax_t bytes)
{
    constexpr auto units = std::to_array<std::string_view>({"kB", "MB", "GB", "TB", "PB", "EB"});
    if (bytes < 1000) {
        return base::countText(static_cast<std::int64_t>(bytes), "byte");
    }
    std::size_t unit = 0;
    // In tenths of the unit; the last digit of a large number says nothing.
    std::uintmax_t tenths = bytes / 100;
    while (tenths >= 10'000 && unit + 1 < units.size()) {
        tenths /= 1000;
        ++unit;
    }
    const std::string fraction = tenths < 100 ? "." + std::to_string(tenths % 10) : "";
    return std::to_string(tenths / 10) + fraction + " " + std::string(units[unit]);
}

std::string sentence(std::string text) { return text.ends_with('.') ? text : text + "."; }

}  // namespace quillmere::doctor
