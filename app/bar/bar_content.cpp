#include "bar/bar_content.hpp"

#include "base/text/columns.hpp"
#include "base/text/count.hpp"
#include "base/text/sanitize.hpp"
#include "work/countdown.hpp"

#include <cmath>

namespace quillmere::bar {
namespace {

/// The limit of each line of a tooltip, which has more room than a bar but cannot be scrolled.
constexpr std::size_t tooltipWidth = 100;

constexpr std::string_view separator = " \u00B7 ";

/// Sanitized and cut. Reads no more of a long text than can be shown: twice as many bytes, because a line
/// break of two bytes becomes one space.
std::string cut(std::string_view text, std::size_t width)
{
    return base::cutToColumns(base::sanitized(text.substr(0, 2 * (width + 1) * base::mostBytesPerColumn)),
                              width);
}

void addDetail(std::vector<std::string>& details, std::string_view heading, std::string_view text)
{
    if (!text.empty()) {
        const std::string shown = cut(text, tooltipWidth);
        details.push_back(cut(std::string(heading).append(": ").append(shown), tooltipWidth));
    }
}

bool isPaused(const WidgetSnapshot& summary) { return summary.countdown && summary.countdown->isPaused; }

/// "15:00", "15:00 paused", "+01:15".
std::string timeInWords(const WidgetSnapshot& summary, std::int64_t remaining)
{
    return QuillmereDesign::timeText(remaining) + (isPaused(summary) ? " paused" : "");
}

/// "Focus 15:00 paused".
std::string shortLine(const WidgetSnapshot& summary, std::optional<std::int64_t> remaining)
{
    const std::string name(title(summary.phase));
    return remaining ? name + " " + timeInWords(summary, *remaining) : name;
}

/// The person's own text comes last, so that text of another direction cannot reorder the rest.
std::string fullLine(const WidgetSnapshot& summary, std::optional<std::int64_t> remaining, std::size_t width)
{
    std::string line = shortLine(summary, remaining);
    const std::string caption = QuillmereDesign::caption(summary);
    if (caption != title(summary.phase)) {
        line.append(separator).append(caption);
    }
    if (summary.openQuestionCount > 0) {
        line.append(separator).append(base::countText(summary.openQuestionCount, "question"));
    }
    if (!summary.intendedOutcome.empty()) {
        line.append(separator).append(cut(summary.intendedOutcome, width));
    }
    return line;
}

std::vector<std::string> detailsOf(const WidgetSnapshot& summary, std::optional<std::int64_t> remaining)
{
    std::vector<std::string> details = {QuillmereDesign::caption(summary)};
    if (remaining) {
        details.push_back(timeInWords(summary, *remaining));
    }
    addDetail(details, "Outcome", summary.intendedOutcome);
    addDetail(details, "First action", summary.firstAction);
    for (const std::string& question : summary.openQuestions) {
        addDetail(details, "Asked", question);
    }
    if (const std::int64_t hidden = summary.hiddenOpenQuestionCount(); hidden > 0) {
        details.push_back(base::moreText(hidden));
    }
    return details;
}

std::vector<std::string> classesOf(const WidgetSnapshot& summary, bool isOvertime)
{
    std::vector<std::string> classes = {std::string(rawValue(summary.phase))};
    if (isPaused(summary)) {
        classes.emplace_back("paused");
    }
    if (isOvertime) {
        classes.emplace_back("overtime");
    }
    if (summary.openQuestionCount > 0) {
        classes.emplace_back("question");
    }
    return classes;
}

BarFacts factsOf(const WidgetSnapshot& summary, std::optional<std::int64_t> remaining)
{
    std::vector<std::string> questions;
    for (const std::string& question : summary.openQuestions) {
        questions.push_back(cut(question, tooltipWidth));
    }
    return {
        .title = std::string(title(summary.phase)),
        .caption = QuillmereDesign::caption(summary),
        .remainingSeconds = remaining,
        .timeText = remaining ? QuillmereDesign::timeText(*remaining) : "",
        .intendedOutcome = cut(summary.intendedOutcome, tooltipWidth),
        .firstAction = cut(summary.firstAction, tooltipWidth),
        .openQuestionCount = summary.openQuestionCount,
        .openQuestions = questions,
        .link = std::string(url(summary.route)),
        .updatedAt = summary.updatedAt,
    };
}

}  // namespace

BarContent barContent(const WidgetSnapshot& summary, Instant now, std::size_t width)
{
    const std::optional<std::int64_t> remaining = work::remainingSeconds(summary, now);
    const bool isOvertime = remaining && *remaining < 0;
    BarContent content{
        .text = cut(fullLine(summary, remaining, width), width),
        .shortText = cut(shortLine(summary, remaining), width),
        .details = detailsOf(summary, remaining),
        .alternative = std::string(rawValue(summary.phase)),
        .classes = classesOf(summary, isOvertime),
        .accent = QuillmereDesign::accent(summary.phase),
        .isOvertime = isOvertime,
        .percentage = std::nullopt,
        .facts = factsOf(summary, remaining),
        .error = {},
    };
    if (const std::optional<double> progress = work::usedShare(summary, now)) {
        content.percentage = std::lround(*progress * 100);
    }
    return content;
}

BarContent barContentOfFailure(const std::string& message, std::size_t width)
{
    const std::string unreadable = "unreadable";
    return {
        .text = cut(message, width),
        .shortText = cut("Unreadable", width),
        .details = {cut(message, tooltipWidth)},
        .alternative = unreadable,
        .classes = {unreadable},
        .accent = QuillmereDesign::Accent::neutral,
        .isOvertime = false,
        .percentage = std::nullopt,
        .facts = std::nullopt,
        .error = cut(message, tooltipWidth),
    };
}

}  // namespace quillmere::bar
