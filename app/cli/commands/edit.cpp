// Changes a scheduled block.
#include "base/text/local_time.hpp"
#include "cli/block_options.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "work/done_text.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

/// Whether the scheduled block is back in planning, as on the screen.
bool isBeingEdited(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::blockPlanning && state.currentBlock &&
           state.currentBlock->plannedStart;
}

/// Takes the block back into planning and out again, so that it never loses its start in between.
std::string edit(const BlockOptions& options, QuillmereState& state, const base::SeenFrom& here)
{
    if (!isBeingEdited(state)) {
        WorkflowEngine().editScheduledBlock(state, here.now);
    }
    options.plan(*state.currentBlock, state, here);
    const std::optional<Instant>& start = state.currentBlock->plannedStart;
    if (start && options.hasTime()) {
        return work::done::scheduledFor(*start, here.hours);
    }
    return std::string(start ? work::done::scheduleChanged : work::done::blockBegun);
}

void editBlock(BlockOptions& options, Program& program)
{
    const auto operation = namingOptions([&](QuillmereState& state, Instant now) {
        std::string done = edit(options, state, {now, program.hours()});
        if (!options.anyGiven() && !program.environment().inputIsTerminal) {
            throw ProgramError(ExitCode::usage,
                               "Say what to change, such as --at 15:00 or --focus 50m; quillmere edit --help "
                               "lists the options.");
        }
        return done;
    });
    if (program.environment().inputIsTerminal && !options.anyGiven()) {
        const workspace::Situation situation = program.workspace().look(base::Reach::prompts);
        if (situation.state.currentBlock && program.wouldAccept(operation, base::Reach::present)) {
            options.askForMissing(*situation.state.currentBlock,
                                  {program.environment(), situation.state, {situation.now, program.hours()}});
        }
    }
    program.change(operation);
}

}  // namespace

void addEdit(CLI::App& line, Program& program)
{
    const auto options = std::make_shared<BlockOptions>();
    CLI::App* const command = addCommand(line, program, "edit", "Change the scheduled block, or begin it now",
                                         [options, &program] { editBlock(*options, program); });
    options->addTo(*command);
}

}  // namespace quillmere::cli
