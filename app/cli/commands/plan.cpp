// Plans a block and begins it, now or at a later time.
#include "cli/commands/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

constexpr const work::Prompt& outcomePrompt = work::blockFields.front().prompt;
constexpr const work::Prompt& startPrompt = work::blockFields.back().prompt;

/// The command line.
struct PlanCommand {
    RecordOptions<Block> options{work::blockFields};
    bool start = false;

    const std::optional<std::string>& at() const { return options.given("at"); }
};

void askForMissing(PlanCommand& command, base::Environment& environment, Instant now)
{
    std::vector<std::string>& outcomes = command.options.items("outcome");
    if (outcomes.empty()) {
        for (std::string outcome = ask(environment, std::string(outcomePrompt.question)); !outcome.empty();
             outcome = ask(environment, "And what else? (empty: nothing)")) {
            outcomes.push_back(outcome);
        }
    }
    command.options.askForMissing([&](const work::Prompt& prompt) {
        // An empty answer keeps the text of a block that was scheduled before.
        const std::string answer = ask(environment, work::promptText(prompt));
        return answer.empty() ? std::nullopt : std::optional(answer);
    });
    if (!command.start && !command.at()) {
        const std::string when =
            askUntil(environment, work::promptText(startPrompt), [&](const std::string& text) {
                if (!text.empty()) {
                    work::requireToCome("at", work::startFrom({"at", text}, now), now);
                }
            });
        command.start = when.empty();
        command.options.give("at", when.empty() ? std::nullopt : std::optional(when));
    }
}

/// The block in planning, or a default one, with the values of the command line.
Block plannedBlock(const PlanCommand& command, const QuillmereState& state, Instant now)
{
    Block block = state.currentBlock ? *state.currentBlock : Block::default_(now);
    command.options.applyTo(block, now);
    block.plannedStart = std::nullopt;
    if (command.at()) {
        block.plannedStart = work::startFrom({"at", *command.at()}, now);
        work::requireToCome("at", *block.plannedStart, now);
    }
    return block;
}

/// Begins planning, unless it has begun, and ends it with the block. Refusals of the engine come before an
/// option that is missing.
void planBlock(const PlanCommand& command, QuillmereState& state, Instant now)
{
    const WorkflowEngine engine;
    if (state.workflowState != WorkflowState::blockPlanning) {
        engine.beginBlockPlanning(state, now);
    }
    Block block = plannedBlock(command, state, now);
    if (command.at()) {
        engine.scheduleBlock(state, std::move(block), now);
    } else {
        engine.startBlock(state, std::move(block), now);
    }
    if (!command.start && !command.at()) {
        throw ProgramError(ExitCode::usage, "Say --start to begin now, or --at TIME to begin later.");
    }
}

void plan(PlanCommand& command, Program& program)
{
    const auto operationOf = [](const PlanCommand& words) {
        return namingOptions([&](QuillmereState& state, Instant now) { planBlock(words, state, now); });
    };
    if (program.environment().inputIsTerminal) {
        // Wrong options are refused before anything is asked.
        PlanCommand rehearsal = command;
        rehearsal.start = !rehearsal.at();
        if (program.wouldAccept(operationOf(rehearsal))) {
            askForMissing(command, program.environment(), program.workspace().now());
        }
    }
    program.change(command.start ? work::done::blockBegun : work::done::blockScheduled, operationOf(command));
}

}  // namespace

void addPlan(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<PlanCommand>();
    CLI::App* const app = addCommand(line, program, "plan", "Plan a block and begin it, or schedule it",
                                     [command, &program] { plan(*command, program); });
    command->options.addTo(*app);
    app->add_flag("--start", command->start, "Begin now")->excludes(command->options.option("at"));
}

}  // namespace quillmere::cli
