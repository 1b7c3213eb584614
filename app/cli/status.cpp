#include "cli/status.hpp"

#include "base/record_json.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "work/countdown.hpp"
#include "work/event_text.hpp"
#include "work/situation_view.hpp"

#include <nlohmann/json.hpp>

#include <ostream>

namespace quillmere::cli {
namespace {

void printNextCommands(std::ostream& out, const work::SituationView& view, const base::Style& style)
{
    std::string line = "Next:";
    for (const std::string_view command : view.nextCommands) {
        line.append(line.back() == ':' ? " " : ", ").append(command);
    }
    out << style.dimmed(line) << '\n';
}

void printQuestions(std::ostream& out, std::size_t count)
{
    if (count > 0) {
        out << work::waitingQuestionsText(count) << " (quillmere questions)\n";
    }
}

void printSchedule(std::ostream& out, const std::optional<work::ScheduleView>& schedule, base::Hours hours)
{
    if (schedule) {
        out << "A block is scheduled: " << base::localText(schedule->start, hours) << " to "
            << base::localText(schedule->end, hours) << '\n';
    }
}

}  // namespace

base::Json statusJson(const workspace::Situation& situation)
{
    const work::SituationView view = work::SituationView::of(situation);
    base::Json status = {
        {"workflow_state", rawValue(situation.state.workflowState)},
        {"caption", view.caption},
        {"interruptible", situation.state.interruptible()},
        {"next", view.nextCommands},
        {"widget", base::recordJson(WidgetSnapshot::make(situation.state, situation.now))},
    };
    if (view.timer) {
        status["time_text"] = QuillmereDesign::timeText(view.timer->remainingSeconds);
    }
    if (situation.state.currentBlock) {
        status["block_id"] = situation.state.currentBlock->id.text();
        if (const auto& start = situation.state.currentBlock->plannedStart) {
            status["planned_start"] = base::instantJson(*start);
        }
    }
    return status;
}

void printField(std::ostream& out, std::string_view heading, std::string_view text)
{
    if (!text.empty()) {
        out << heading << ": " << base::sanitized(text) << '\n';
    }
}

void printHeadline(std::ostream& out, const WidgetSnapshot& snapshot, Instant now,
                   std::optional<double> progress, const base::Style& style)
{
    out << style.accented(title(snapshot.phase), QuillmereDesign::accent(snapshot.phase)) << "  "
        << QuillmereDesign::caption(snapshot) << '\n';
    if (const auto remaining = work::remainingSeconds(snapshot, now)) {
        out << QuillmereDesign::timeText(*remaining);
        if (progress) {
            out << "  " << base::progressBar(*progress);
        }
        out << (snapshot.countdown->isPaused ? "  paused" : "") << '\n';
    }
}

void printStatus(std::ostream& out, const workspace::Situation& situation, const base::Style& style,
                 base::Hours hours)
{
    const work::SituationView view = work::SituationView::of(situation);
    printHeadline(out, WidgetSnapshot::make(situation.state, situation.now), situation.now,
                  view.timer ? std::optional(view.timer->usedShare) : std::nullopt, style);
    printField(out, "Outcome", view.intendedOutcome);
    printField(out, "First action", view.firstAction);
    printSchedule(out, view.schedule, hours);
    printQuestions(out, view.openQuestionCount);
    printNextCommands(out, view, style);
}

}  // namespace quillmere::cli
