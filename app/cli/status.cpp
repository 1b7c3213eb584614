#include "cli/status.hpp"

#include "base/record_json.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "work/countdown.hpp"

#include <quillmere/engine/transition.hpp>

#include <ostream>

namespace quillmere::cli {
namespace {

/// A command that moves the workflow, offered when its step may be taken.
struct Suggestion {
    Step step;
    std::string_view command;
};

constexpr auto suggestions = std::to_array<Suggestion>({
    {Step::beginBlockPlanning, "plan"},
    {Step::startBlock, "plan"},
    {Step::startScheduledBlockNow, "start"},
    {Step::editScheduledBlock, "edit"},
    {Step::cancelScheduledBlock, "cancel"},
    {Step::startFocus, "focus"},
    {Step::pauseFocus, "pause"},
    {Step::resumeFocus, "resume"},
    {Step::endFocus, "end"},
    {Step::saveReviewAndStartBreak, "review"},
    {Step::saveLastReview, "review"},
    {Step::endBreak, "break end"},
    {Step::extendBreak, "break extend"},
    {Step::completeBlockReview, "reflect"},
});

std::vector<std::string_view> nextCommands(const QuillmereState& state)
{
    std::vector<std::string_view> commands;
    for (const Suggestion& suggestion : suggestions) {
        if (isPossible(suggestion.step, state)) {
            commands.push_back(suggestion.command);
        }
    }
    return commands;
}

void printNextCommands(std::ostream& out, const QuillmereState& state, const base::Style& style)
{
    std::string line = "Next:";
    for (const std::string_view command : nextCommands(state)) {
        line.append(line.back() == ':' ? " " : ", ").append(command);
    }
    out << style.dimmed(line) << '\n';
}

void printQuestions(std::ostream& out, std::int64_t count)
{
    if (count > 0) {
        out << (count == 1 ? "A question waits" : std::to_string(count) + " questions wait")
            << " (quillmere questions)\n";
    }
}

void printSchedule(std::ostream& out, const QuillmereState& state)
{
    if (state.workflowState == WorkflowState::idle && state.currentBlock &&
        state.currentBlock->plannedStart) {
        out << "A block is scheduled: " << base::localText(*state.currentBlock->plannedStart) << " to "
            << base::localText(state.currentBlock->plannedEnd()) << '\n';
    }
}

}  // namespace

base::Json statusJson(const workspace::Situation& situation)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::make(situation.state, situation.now);
    base::Json status = {
        {"workflow_state", rawValue(situation.state.workflowState)},
        {"caption", QuillmereDesign::caption(snapshot)},
        {"interruptible", situation.state.interruptible()},
        {"next", nextCommands(situation.state)},
        {"widget", base::recordJson(snapshot)},
    };
    if (const auto remaining = work::remainingSeconds(snapshot, situation.now)) {
        status["time_text"] = QuillmereDesign::timeText(*remaining);
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

void printStatus(std::ostream& out, const workspace::Situation& situation, const base::Style& style)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::make(situation.state, situation.now);
    printHeadline(out, snapshot, situation.now, work::usedShare(situation), style);
    printField(out, "Outcome", snapshot.intendedOutcome);
    printField(out, "First action", snapshot.firstAction);
    printSchedule(out, situation.state);
    printQuestions(out, snapshot.openQuestionCount);
    printNextCommands(out, situation.state, style);
}

}  // namespace quillmere::cli
