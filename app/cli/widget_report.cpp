#include "cli/widget_report.hpp"

#include "base/record_json.hpp"
#include "base/text/local_time.hpp"
#include "cli/status.hpp"
#include "work/countdown.hpp"

#include <quillmere/records/json/date_text.hpp>
#include <quillmere/widget/widget_timeline_plan.hpp>

#include <cmath>
#include <ostream>

namespace quillmere::cli {
namespace {

/// The text of an entry at its date: the time left, or the caption without a countdown.
std::string entryText(const WidgetTimelinePlan::Entry& entry)
{
    const auto remaining = work::remainingSeconds(entry.snapshot, entry.date);
    return remaining ? QuillmereDesign::timeText(*remaining) : QuillmereDesign::caption(entry.snapshot);
}

/// In the last half hour of the year 9999 the widget would ask again at an instant without a date.
base::Json refreshDateJson(const WidgetSnapshot& snapshot, Instant now)
{
    const Instant date = WidgetTimelinePlan::refreshDate(snapshot, now);
    return json::hasDateText(date) ? base::instantJson(date) : base::Json(nullptr);
}

}  // namespace

base::Json widgetJson(const WidgetSnapshot& snapshot, Instant now)
{
    base::Json timeline = base::Json::array();
    for (const WidgetTimelinePlan::Entry& entry : WidgetTimelinePlan::entries(snapshot, now)) {
        timeline.push_back({{"date", base::instantJson(entry.date)}, {"text", entryText(entry)}});
    }
    base::Json json = {
        {"snapshot", base::recordJson(snapshot)},
        {"title", title(snapshot.phase)},
        {"caption", QuillmereDesign::caption(snapshot)},
        {"block_progress", snapshot.blockProgress()},
        {"hidden_open_questions", snapshot.hiddenOpenQuestionCount()},
        {"link", url(snapshot.route)},
        {"timeline", timeline},
        {"refresh_date", refreshDateJson(snapshot, now)},
    };
    if (const auto remaining = work::remainingSeconds(snapshot, now)) {
        json["time_text"] = QuillmereDesign::timeText(*remaining);
    }
    if (const auto progress = snapshot.sessionProgress(now)) {
        json["session_progress"] = *progress;
    }
    return json;
}

/// The time left, and a bar of its share.
void printTime(std::ostream& out, const WidgetSnapshot& snapshot, Instant now)
{
    const std::optional<std::int64_t> remaining = work::remainingSeconds(snapshot, now);
    if (!remaining) {
        return;
    }
    const std::optional<double> progress = snapshot.sessionProgress(now);
    out << QuillmereDesign::timeText(*remaining) << (progress ? "  " + base::progressBar(*progress) : "")
        << (snapshot.countdown->isPaused ? "  paused" : "") << '\n';
}

void printWidget(std::ostream& out, const WidgetSnapshot& snapshot, const base::SeenFrom& here,
                 const base::Style& style)
{
    const Instant now = here.now;
    printTitle(out, snapshot.phase, QuillmereDesign::caption(snapshot), style);
    printTime(out, snapshot, now);
    printField(out, "Outcome", snapshot.intendedOutcome);
    printField(out, "First action", snapshot.firstAction);
    if (snapshot.sessionsPlanned > 0) {
        out << "Block: " << snapshot.sessionsStarted << " of " << snapshot.sessionsPlanned << " sessions "
            << base::progressBar(snapshot.blockProgress()) << '\n';
    }
    for (const std::string& question : snapshot.openQuestions) {
        printField(out, "Asked", question);
    }
    if (const std::int64_t hidden = snapshot.hiddenOpenQuestionCount(); hidden > 0) {
        out << "and " << hidden << " more\n";
    }
    out << "Timeline:";
    for (const WidgetTimelinePlan::Entry& entry : WidgetTimelinePlan::entries(snapshot, now)) {
        out << "  " << base::localTextSeenFrom(here, entry.date) << ' ' << entryText(entry);
    }
    out << "  (asks again at "
        << base::localTextSeenFrom(here, WidgetTimelinePlan::refreshDate(snapshot, now)) << ")\n";
}

}  // namespace quillmere::cli
