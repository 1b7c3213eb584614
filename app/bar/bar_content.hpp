// What a status bar shows of the widget's summary, before it is put into the form of some bar.
#pragma once

#include "base/json.hpp"

#include <quillmere/widget/design.hpp>

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::bar {

/// The columns that the line takes at most, unless the person says otherwise.
inline constexpr std::size_t usualBarWidth = 60;

/// Every text is sanitized and cut to its width, and what a bar would obey in it is still to be escaped.
struct BarContent {
    std::string text;                  ///< the line
    std::string shortText;             ///< for bars with little room: the phase and the time
    std::vector<std::string> details;  ///< for a tooltip, line by line
    std::string alternative;           ///< one word of a fixed set, by which a bar chooses an icon
    std::vector<std::string> classes;  ///< words of a fixed set, by which a bar chooses a look
    QuillmereDesign::Accent accent;
    bool isOvertime;
    std::optional<std::int64_t> percentage;  ///< how much of a countdown is over, 0 to 100
    base::Json facts;                        ///< an object: what programs may want besides
};

/// What is shown at an instant. A countdown goes on by its dates; a paused one stands still.
BarContent barContent(const WidgetSnapshot& summary, Instant now, std::size_t width);

/// What is shown when there is no summary to show: why.
BarContent barContentOfFailure(const std::string& message, std::size_t width);

}  // namespace quillmere::bar
