#include "cli/status.hpp"

#include "base/record_json.hpp"
#include "base/text/sanitize.hpp"
#include "cli/recall_text.hpp"
#include "work/event_text.hpp"
#include "work/recall/moment.hpp"
#include "work/situation_view.hpp"
#include "work/timer_text.hpp"

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

/// The time, a bar, and when it ends: "14:59  [###.....]  until 14:55". For a session in review since when
/// its time is over, and nothing without a time.
void printTime(std::ostream& out, const work::SituationView& view, const base::SeenFrom& here)
{
    std::string line = work::timeText(view.timer, view.overSince, here);
    if (view.timer) {
        const std::string end = work::endText(*view.timer, here);
        line += "  " + base::progressBar(view.timer->usedShare) + (end.empty() ? "" : "  " + end);
    }
    out << line << (line.empty() ? "" : "\n");
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

void printTitle(std::ostream& out, WidgetPhase phase, std::string_view caption, const base::Style& style)
{
    out << style.accented(title(phase), QuillmereDesign::accent(phase)) << "  " << caption << '\n';
}

void printStatus(std::ostream& out, const workspace::Situation& situation, const base::Style& style,
                 const config::Values& values, StatusDetail detail)
{
    const work::SituationView view = work::SituationView::of(situation);
    printTitle(out, view.phase, view.caption, style);
    printTime(out, view, {situation.now, values.hours});
    if (detail == StatusDetail::whole) {
        printRecall(out, work::recallAt(situation, values), style, textColumns());
        out << '\n';
    }
    printQuestions(out, view.openQuestionCount);
    printNextCommands(out, view, style);
}

}  // namespace quillmere::cli
