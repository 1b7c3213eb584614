#include "screen/terminal/abilities.hpp"

#include "base/text/style.hpp"
#include "screen/terminal/curses.hpp"

#include <cstdlib>
#include <string>
#include <string_view>

namespace quillmere::screen {
namespace {

/// A string without the delays that printing terminals needed: "$<5>".
std::string withoutDelays(std::string_view sequence)
{
    std::string result;
    while (!sequence.empty()) {
        const std::size_t end = sequence.starts_with("$<") ? sequence.find('>') : std::string_view::npos;
        if (end == std::string_view::npos) {
            result += sequence.front();
            sequence.remove_prefix(1);
        } else {
            sequence.remove_prefix(end + 1);
        }
    }
    return result;
}

/// A string of the description; empty where the terminal lacks it.
std::string described(const char* name)
{
    const char* const text = curses().tigetstr(name);
    return text && text != reinterpret_cast<const char*>(-1) ? withoutDelays(text) : std::string();
}

std::string moveTo(Place place)
{
    const std::string form = described("cup");
    const char* const sequence =
        curses().tiparm(form.c_str(), static_cast<int>(place.row), static_cast<int>(place.column));
    return sequence ? sequence : "";
}

/// COLORTERM says what the descriptions of most terminals leave out.
base::ColourDepth coloursOfTerminal()
{
    constexpr int basic = 8;
    constexpr int palette = 256;
    const int described = curses().tigetnum("colors");
    const char* const variable = std::getenv("COLORTERM");
    const std::string_view more = variable ? variable : "";
    if (!base::wantsColour(true) || described < basic) {
        return base::ColourDepth::none;
    }
    if (more == "truecolor" || more == "24bit") {
        return base::ColourDepth::ofAll;
    }
    return described >= palette ? base::ColourDepth::of256 : base::ColourDepth::of16;
}

}  // namespace

TerminalAbilities abilitiesOfTerminal()
{
    return {.moveTo = moveTo,
            .clear = described("clear"),
            .plain = described("sgr0"),
            .bold = described("bold"),
            .dim = described("dim"),
            .colours = coloursOfTerminal(),
            // Of automatic margins, those of the VT100 wait for the next character.
            .scrollsAtTheEnd = curses().tigetflag("am") == 1 && curses().tigetflag("xenl") != 1};
}

}  // namespace quillmere::screen
