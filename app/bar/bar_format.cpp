#include "bar/bar_format.hpp"

#include "base/json.hpp"
#include "base/text/colours.hpp"
#include "base/text/columns.hpp"
#include "base/text/xml.hpp"

#include <array>
#include <nlohmann/json.hpp>

namespace quillmere::bar {
namespace {

/// A part of a text that a bar would interpret, and its replacement.
struct BarEscape {
    std::string_view part;
    std::string_view shown;
};

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

/// Most bars are dark. Empty for the neutral accent and once the time is over: the bar keeps its own colour.
std::string_view colourForI3(const BarContent& content)
{
    const bool isPlain = content.accent == QuillmereDesign::Accent::neutral || content.isOvertime;
    return isPlain ? "" : base::colourOf(content.accent).shades.dark;
}

std::string waybarLine(const BarContent& content)
{
    std::string tooltip;
    for (const std::string& detail : content.details) {
        tooltip.append(tooltip.empty() ? "" : "\n").append(escapedForPango(detail));
    }
    return base::jsonLine({
               {"text", escapedForPango(content.text)},
               {"alt", content.alternative},
               {"tooltip", tooltip},
               {"class", content.classes},
               {"percentage", content.percentage.value_or(0)},
           }) +
           '\n';
}

template <class Value>
base::Json jsonOf(const std::optional<Value>& value)
{
    return value ? base::Json(*value) : base::Json();
}

base::Json jsonOfFacts(const BarFacts& facts)
{
    return {
        {"title", facts.title},
        {"caption", facts.caption},
        {"remaining_seconds", jsonOf(facts.remainingSeconds)},
        {"time_text", facts.remainingSeconds ? base::Json(facts.timeText) : base::Json()},
        {"intended_outcome", facts.intendedOutcome},
        {"first_action", facts.firstAction},
        {"open_question_count", facts.openQuestionCount},
        {"open_questions", facts.openQuestions},
        {"link", facts.link},
        {"updated_at", base::instantJson(facts.updatedAt)},
    };
}

std::string jsonLine(const BarContent& content)
{
    base::Json line = {
        {"text", content.text},
        {"short_text", content.shortText},
        {"phase", content.alternative},
        {"classes", content.classes},
        {"percentage", jsonOf(content.percentage)},
    };
    line.update(content.facts ? jsonOfFacts(*content.facts) : base::Json{{"error", content.error}});
    return base::jsonLine(line) + '\n';
}

/// i3blocks 1.5 reads a line into 1,024 bytes and takes the rest for the next line.
constexpr std::size_t mostBytesForI3 = 900;

std::string i3blocksLines(const BarContent& content, BarPace pace)
{
    std::string lines = base::cutToBytes(content.text, mostBytesForI3) + '\n';
    // While a run stays, i3blocks shows each of its lines as a new text.
    if (pace == BarPace::once) {
        lines.append(content.shortText).append("\n");
        if (const std::string_view colour = colourForI3(content); !colour.empty()) {
            lines.append(colour).append("\n");
        }
    }
    return lines;
}

}  // namespace

std::string escapedForPango(std::string_view text) { return base::escapedForXml(text); }
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
    return jsonLine(content);
}

}  // namespace quillmere::bar
