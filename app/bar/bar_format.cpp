#include "bar/bar_format.hpp"

#include "base/text/columns.hpp"

#include <array>
#include <nlohmann/json.hpp>

namespace quillmere::bar {
namespace {

/// A part of a text that a bar would obey, and what it shows as that part.
struct BarEscape {
    std::string_view part;
    std::string_view shown;
};

// https://docs.gtk.org/glib/struct.MarkupParseContext.html: a subset of XML.
constexpr auto pangoEscapes = std::to_array<BarEscape>({
    {"&", "&amp;"},
    {"<", "&lt;"},
    {">", "&gt;"},
    {"'", "&#39;"},
    {"\"", "&quot;"},
});

// tmux(1), FORMATS.
constexpr auto tmuxEscapes = std::to_array<BarEscape>({{"#", "##"}});

// https://github.com/polybar/polybar/wiki/Formatting.
constexpr auto polybarEscapes = std::to_array<BarEscape>({{"%{", "%\u200B{"}});

template <std::size_t count>
std::string escaped(std::string_view text, const std::array<BarEscape, count>& escapes)
{
    std::string result;
    while (!text.empty()) {
        BarEscape found{.part = text.substr(0, 1), .shown = text.substr(0, 1)};
        for (const BarEscape& escape : escapes) {
            if (text.starts_with(escape.part)) {
                found = escape;
            }
        }
        result += found.shown;
        text.remove_prefix(found.part.size());
    }
    return result;
}

std::string_view colourForI3(QuillmereDesign::Accent accent)
{
    switch (accent) {
        case QuillmereDesign::Accent::focus: return "#e06050";
        case QuillmereDesign::Accent::rest: return "#60b060";
        case QuillmereDesign::Accent::plan: return "#60a0e0";
        case QuillmereDesign::Accent::review: return "#b080e0";
        case QuillmereDesign::Accent::neutral: break;
    }
    return "";
}

/// Nothing beyond ASCII, so no control character either.
std::string oneLine(const base::Json& json)
{
    return json.dump(-1, ' ', true, base::Json::error_handler_t::replace) + '\n';
}

std::string waybarLine(const BarContent& content)
{
    std::string tooltip;
    for (const std::string& detail : content.details) {
        tooltip.append(tooltip.empty() ? "" : "\n").append(escapedForPango(detail));
    }
    return oneLine({
        {"text", escapedForPango(content.text)},
        {"alt", content.alternative},
        {"tooltip", tooltip},
        {"class", content.classes},
        {"percentage", content.percentage.value_or(0)},
    });
}

std::string barAsJson(const BarContent& content)
{
    base::Json line = {
        {"text", content.text},
        {"short_text", content.shortText},
        {"phase", content.alternative},
        {"classes", content.classes},
        {"percentage", content.percentage ? base::Json(*content.percentage) : base::Json()},
    };
    line.update(content.facts);
    return oneLine(line);
}

/// i3blocks 1.5 reads a line into 1,024 bytes, and takes the rest for the next one.
constexpr std::size_t mostBytesForI3 = 900;

std::string i3blocksLines(const BarContent& content, BarPace pace)
{
    std::string lines = base::cutToBytes(content.text, mostBytesForI3) + '\n';
    // Each line of a run that stays is a text by itself.
    if (pace == BarPace::once) {
        lines.append(content.shortText).append("\n");
        if (const std::string_view colour = colourForI3(content.accent); !colour.empty()) {
            lines.append(colour).append("\n");
        }
    }
    return lines;
}

}  // namespace

std::string escapedForPango(std::string_view text) { return escaped(text, pangoEscapes); }
std::string escapedForTmux(std::string_view text) { return escaped(text, tmuxEscapes); }
std::string escapedForPolybar(std::string_view text) { return escaped(text, polybarEscapes); }

std::string barText(BarFormat format, const BarContent& content, BarPace pace)
{
    switch (format) {
        case BarFormat::waybar: return waybarLine(content);
        case BarFormat::i3blocks: return i3blocksLines(content, pace);
        case BarFormat::polybar: return escapedForPolybar(content.text) + '\n';
        case BarFormat::tmux: return escapedForTmux(content.text) + '\n';
        case BarFormat::text: return content.text + '\n';
        case BarFormat::json: break;
    }
    return barAsJson(content);
}

}  // namespace quillmere::bar
