// Plans a block and begins it, now or at a later time.
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "cli/commands/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "workspace/screening.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

/// What the command line says of the block.
struct PlanCommand {
    std::vector<std::string> outcomes;
    TextOptions<Block, work::blockFields.size()> texts{work::blockFields};
    std::optional<std::string> focus;
    std::optional<std::string> rest;
    std::optional<std::int64_t> cycles;
    std::optional<std::string> at;
    bool start = false;
};

double durationOf(const std::string& text, const char* what)
{
    const std::optional<double> seconds = base::durationFromText(text);
    if (!seconds) {
        throw ProgramError(
            ExitCode::usage,
            std::string(what) + " is no duration from 1 second to 366 days, such as 25m or 1h30m: " + text);
    }
    return *seconds;
}

Instant plannedStartOf(const std::string& text, Instant now)
{
    const std::optional<Instant> start = base::instantFromLocalText(text, now);
    if (!start) {
        throw ProgramError(ExitCode::usage,
                           "--at is no local time, such as 14:30, \"2026-11-15 09:00\" or +1h: " + text);
    }
    if (*start < now) {
        throw ProgramError(ExitCode::usage,
                           "--at has passed; name a time to come, or say --start to begin now: " + text);
    }
    return *start;
}

void askForMissing(PlanCommand& command, base::Environment& environment, Instant now)
{
    const auto question = [&](const char* text) { return ask(environment, text); };
    if (command.outcomes.empty()) {
        for (std::string outcome = question("What should come out of it?"); !outcome.empty();
             outcome = question("And what else? (empty: nothing)")) {
            command.outcomes.push_back(outcome);
        }
    }
    command.texts.askForMissing([&](const char* text) {
        // What a scheduled block had is kept where nothing is typed.
        const std::string answer = question(text);
        return answer.empty() ? std::nullopt : std::optional(answer);
    });
    if (!command.start && !command.at) {
        const std::string when = askUntil(
            environment, "When does it begin? (14:30, +1h; empty: now)", [&](const std::string& text) {
                const std::optional<Instant> start = base::instantFromLocalText(text, now);
                return text.empty() || (start && *start >= now);
            });
        command.start = when.empty();
        command.at = when.empty() ? std::nullopt : std::optional(when);
    }
}

/// The block to begin: what was in planning already, or a usual one, with what the command line says.
Block plannedBlock(const PlanCommand& command, const QuillmereState& state, Instant now)
{
    Block block = state.currentBlock ? *state.currentBlock : Block::default_(now);
    command.texts.applyTo(block);
    if (!command.outcomes.empty()) {
        block.outcomes.clear();
        for (const std::string& outcome : command.outcomes) {
            block.outcomes.push_back({.id = Identifier::random(), .title = outcome});
        }
    }
    if (command.focus) {
        block.focusDurationSeconds = durationOf(*command.focus, "--focus");
    }
    if (command.rest) {
        block.breakDurationSeconds = durationOf(*command.rest, "--break");
    }
    block.cycleCount = command.cycles.value_or(block.cycleCount);
    if (block.cycleCount > workspace::mostCycles) {
        throw ProgramError(ExitCode::usage, "More than 1000 cycles are not accepted.");
    }
    block.plannedStart = command.at ? std::optional(plannedStartOf(*command.at, now)) : std::nullopt;
    return block;
}

/// Opens planning, unless it is open, and closes it with the block. What the engine refuses is said
/// before what the command line lacks.
void planBlock(const PlanCommand& command, QuillmereState& state, Instant now)
{
    const WorkflowEngine engine;
    if (state.workflowState != WorkflowState::blockPlanning) {
        engine.beginBlockPlanning(state, now);
    }
    Block block = plannedBlock(command, state, now);
    if (command.at) {
        engine.scheduleBlock(state, std::move(block), now);
    } else {
        engine.startBlock(state, std::move(block), now);
    }
    if (!command.start && !command.at) {
        throw ProgramError(ExitCode::usage, "Say --start to begin now, or --at TIME to begin later.");
    }
}

void plan(PlanCommand& command, Program& program)
{
    if (program.environment().inputIsTerminal) {
        // A slip on the command line is to be found before anything is asked.
        PlanCommand rehearsal = command;
        rehearsal.start = !rehearsal.at;
        if (program.wouldAccept(
                [&](QuillmereState& state, Instant now) { planBlock(rehearsal, state, now); })) {
            askForMissing(command, program.environment(), program.workspace().now());
        }
    }
    program.change(command.start ? "The block has begun." : "The block is scheduled.",
                   [&](QuillmereState& state, Instant now) { planBlock(command, state, now); });
}

}  // namespace

void addPlan(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<PlanCommand>();
    CLI::App* const app = addCommand(line, program, "plan", "Plan a block and begin it, or schedule it",
                                     [command, &program] { plan(*command, program); });
    app->add_option("--outcome", command->outcomes, "What should come out of it; may be given several times")
        ->allow_extra_args(false)
        ->check(wellFormedText());
    command->texts.addTo(*app);
    app->add_option("--focus", command->focus, "How long a focus session lasts: 25m (usual), 1h30m");
    app->add_option("--break", command->rest, "How long a break lasts: 5m (usual)");
    app->add_option("--cycles", command->cycles, "How many focus sessions: 8 (usual)")
        ->transform(wholeNumber());
    CLI::Option* const start = app->add_flag("--start", command->start, "Begin now");
    app->add_option("--at", command->at, "Begin at a local time: 14:30, \"2026-11-15 09:00\", +1h")
        ->excludes(start)
        ->check(wellFormedText());
}

}  // namespace quillmere::cli
