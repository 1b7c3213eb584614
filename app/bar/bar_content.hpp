// The content of a line in a status bar, in the format of no bar yet.
#pragma once

#include "base/text/local_time.hpp"
#include "work/short_view.hpp"

#include <quillmere/widget/design.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::bar {

/// The default width of the line, in columns.
inline constexpr std::size_t usualBarWidth = 60;

/// Facts for programs, besides the line. Texts are sanitized and cut.
struct BarFacts {
    std::string title;
    std::string caption;  ///< of the library: QuillmereDesign::caption
    std::optional<std::int64_t> remainingSeconds;
    std::string timeText;  ///< of the remaining seconds; empty without them
    std::string intendedOutcome;
    std::string firstAction;
    std::int64_t openQuestionCount;
    std::vector<std::string> openQuestions;  ///< the first few of them
    std::string link;
    Instant updatedAt;
};

/// Texts are sanitized and cut to their width, but not yet escaped for a bar.
struct BarContent {
    std::string text;                  ///< the line
    std::string shortText;             ///< for bars with little room: the phase and the time
    std::vector<std::string> details;  ///< the lines of a tooltip
    std::string alternative;           ///< a word of a fixed set, by which a bar chooses an icon
    std::vector<std::string> classes;  ///< words of a fixed set, by which a bar chooses a look
    QuillmereDesign::Accent accent;
    bool isOvertime;                         ///< the time is over, and the person has not gone on
    std::optional<std::int64_t> percentage;  ///< of a countdown that is used up, 0 to 100
    std::optional<BarFacts> facts;           ///< absent without a summary
    std::string error;                       ///< why there is no summary; empty with one
};

/// The content for the work as it is at the present.
BarContent barContent(const work::ShortView& work, const base::SeenFrom& here, std::size_t width);

/// The content for a summary that cannot be read.
BarContent barContentOfFailure(const std::string& message, std::size_t width);

}  // namespace quillmere::bar
