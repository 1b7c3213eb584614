#include "bar/bar_content.hpp"

#include "base/text/columns.hpp"
#include "base/text/count.hpp"
#include "base/text/sanitize.hpp"
#include "work/timer_text.hpp"

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

bool isPaused(const work::ShortView& work) { return work.timer && work.timer->isPaused; }

/// "15:00", "15:00 paused", "over since 14:55"; empty without a time.
std::string timeInWords(const work::ShortView& work, const base::SeenFrom& here)
{
    return work::timeText(work.timer, work.overSince, here) + (isPaused(work) ? " paused" : "");
}

/// "Focus 15:00 paused".
std::string shortLine(const work::ShortView& work, const std::string& time)
{
    const std::string name(title(work.snapshot.phase));
    return time.empty() ? name : name + " " + time;
}

/// The person's own text comes last, so that text of another direction cannot reorder the rest.
std::string fullLine(const work::ShortView& work, const std::string& time, std::size_t width)
{
    const WidgetSnapshot& summary = work.snapshot;
    std::string line = shortLine(work, time);
    if (work.heading != title(summary.phase)) {
        line.append(separator).append(work.heading);
    }
    if (summary.openQuestionCount > 0) {
        line.append(separator).append(base::countText(summary.openQuestionCount, "question"));
    }
    if (!summary.intendedOutcome.empty()) {
        line.append(separator).append(cut(summary.intendedOutcome, width));
    }
    return line;
}

std::vector<std::string> detailsOf(const work::ShortView& work, const std::string& time)
{
    const WidgetSnapshot& summary = work.snapshot;
    std::vector<std::string> details = {work.heading};
    if (!time.empty()) {
        details.push_back(time);
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

std::vector<std::string> classesOf(const work::ShortView& work)
{
    const WidgetSnapshot& summary = work.snapshot;
    std::vector<std::string> classes = {std::string(rawValue(summary.phase))};
    if (isPaused(work)) {
        classes.emplace_back("paused");
    }
    if (work.overSince) {
        classes.emplace_back("overtime");
    }
    if (summary.openQuestionCount > 0) {
        classes.emplace_back("question");
    }
    return classes;
}

BarFacts factsOf(const work::ShortView& work)
{
    const WidgetSnapshot& summary = work.snapshot;
    std::vector<std::string> questions;
    for (const std::string& question : summary.openQuestions) {
        questions.push_back(cut(question, tooltipWidth));
    }
    return {
        .title = std::string(title(summary.phase)),
        .caption = QuillmereDesign::caption(summary),
        .remainingSeconds = work.timer ? std::optional(work.timer->remainingSeconds) : std::nullopt,
        .timeText = work.timer ? QuillmereDesign::timeText(work.timer->remainingSeconds) : "",
        .intendedOutcome = cut(summary.intendedOutcome, tooltipWidth),
        .firstAction = cut(summary.firstAction, tooltipWidth),
        .openQuestionCount = summary.openQuestionCount,
        .openQuestions = questions,
        .link = std::string(url(summary.route)),
        .updatedAt = summary.updatedAt,
    };
}

}  // namespace

BarContent barContent(const work::ShortView& work, const base::SeenFrom& here, std::size_t width)
{
    const std::string time = timeInWords(work, here);
    BarContent content{
        .text = cut(fullLine(work, time, width), width),
        .shortText = cut(shortLine(work, time), width),
        .details = detailsOf(work, time),
        .alternative = std::string(rawValue(work.snapshot.phase)),
        .classes = classesOf(work),
        .accent = QuillmereDesign::accent(work.snapshot.phase),
        .isOvertime = work.overSince.has_value(),
        .percentage = std::nullopt,
        .facts = factsOf(work),
        .error = {},
    };
    if (work.timer) {
        content.percentage = std::lround(work.timer->usedShare * 100);
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
