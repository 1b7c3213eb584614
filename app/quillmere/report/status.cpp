#include "report/status.hpp"

#include "report/possible_steps.hpp"
#include "text/duration.hpp"
#include "text/inert.hpp"
#include "text/local_time.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>

#include <ostream>

namespace quillmere::app {
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

void printNextCommands(std::ostream& out, const QuillmereState& state, const Style& style)
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
        out << "A block is scheduled: " << localText(*state.currentBlock->plannedStart) << " to "
            << localText(state.currentBlock->plannedEnd()) << '\n';
    }
}

}  // namespace

Json instantJson(Instant instant)
{
    // Instants have one text form, which stands in every record that has one.
    return recordJson(WidgetSnapshot::empty(instant)).at("updated_at");
}

std::optional<std::int64_t> remainingSeconds(const WidgetSnapshot& snapshot, Instant now)
{
    if (!snapshot.countdown) {
        return std::nullopt;
    }
    const WidgetCountdown& countdown = *snapshot.countdown;
    return countdown.isPaused ? countdown.frozenRemainingSeconds : wholeSeconds(countdown.endsAt - now);
}

std::optional<double> usedShare(const Situation& situation)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(situation.state, situation.now);
    if (!timer) {
        return std::nullopt;
    }
    const auto elapsed = static_cast<double>(timer->elapsedSeconds);
    const double planned = elapsed + static_cast<double>(timer->remainingSeconds);
    return elapsed < planned ? elapsed / planned : 1.0;
}

Json statusJson(const Situation& situation)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::make(situation.state, situation.now);
    Json status = {
        {"workflow_state", rawValue(situation.state.workflowState)},
        {"caption", QuillmereDesign::caption(snapshot)},
        {"interruptible", situation.state.interruptible()},
        {"next", nextCommands(situation.state)},
        {"widget", recordJson(snapshot)},
    };
    if (const auto remaining = remainingSeconds(snapshot, situation.now)) {
        status["time_text"] = QuillmereDesign::timeText(*remaining);
    }
    if (situation.state.currentBlock) {
        status["block_id"] = situation.state.currentBlock->id.text();
        if (const auto& start = situation.state.currentBlock->plannedStart) {
            status["planned_start"] = instantJson(*start);
        }
    }
    return status;
}

void printField(std::ostream& out, std::string_view heading, std::string_view text)
{
    if (!text.empty()) {
        out << heading << ": " << inert(text) << '\n';
    }
}

void printHeadline(std::ostream& out, const WidgetSnapshot& snapshot, Instant now,
                   std::optional<double> progress, const Style& style)
{
    out << style.accented(title(snapshot.phase), QuillmereDesign::accent(snapshot.phase)) << "  "
        << QuillmereDesign::caption(snapshot) << '\n';
    if (const auto remaining = remainingSeconds(snapshot, now)) {
        out << QuillmereDesign::timeText(*remaining);
        if (progress) {
            out << "  " << progressBar(*progress);
        }
        out << (snapshot.countdown->isPaused ? "  paused" : "") << '\n';
    }
}

void printStatus(std::ostream& out, const Situation& situation, const Style& style)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::make(situation.state, situation.now);
    printHeadline(out, snapshot, situation.now, usedShare(situation), style);
    printField(out, "Outcome", snapshot.intendedOutcome);
    printField(out, "First action", snapshot.firstAction);
    printSchedule(out, situation.state);
    printQuestions(out, snapshot.openQuestionCount);
    printNextCommands(out, situation.state, style);
}

}  // namespace quillmere::app
