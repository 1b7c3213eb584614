// Plans a block and begins it, now or at a later time.
#include "cli/block_options.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "config/new_block.hpp"
#include "work/block_like.hpp"
#include "work/done_text.hpp"
#include "work/forms/block_draft.hpp"

#include <CLI/CLI.hpp>

#include <memory>
#include <ostream>

namespace quillmere::cli {
namespace {

struct PlanCommand {
    BlockOptions options;
    bool takesDraft = false;
    std::optional<Block> draft;  ///< what planning begins with instead of a blank block
    config::Values values;       ///< of the configuration, for a blank block
    std::optional<std::string> model;
};

/// The block with the words and lengths of its model: a template, or another block.
Block likeModel(const PlanCommand& command, const QuillmereState& state, Instant now)
{
    const Block block = state.currentBlock.value_or(config::newBlock(command.values, now));
    if (const config::Template* const fields = config::templateNamed(command.values, *command.model)) {
        return work::withPlanOf(config::newBlock(command.values, *fields, now), block);
    }
    return work::withPlanOf(work::modelNamed(*command.model, state), block);
}

Block presentBlock(const PlanCommand& command, const QuillmereState& state, Instant now)
{
    if (command.model) {
        return likeModel(command, state, now);
    }
    if (!state.currentBlock) {
        return command.draft ? *command.draft : config::newBlock(command.values, now);
    }
    const bool isDraftOfIt = command.draft && command.draft->id == state.currentBlock->id;
    return isDraftOfIt ? *command.draft : *state.currentBlock;
}

/// Begins planning, unless it has begun, and ends it with the block. Refusals of the engine come before an
/// option that is missing.
void planBlock(const PlanCommand& command, QuillmereState& state, Instant now)
{
    if (state.workflowState != WorkflowState::blockPlanning) {
        WorkflowEngine().beginBlockPlanning(state, now);
    }
    command.options.plan(presentBlock(command, state, now), state, {now, command.values.hours});
    if (!command.options.hasTime() && !state.currentBlock->plannedStart) {
        throw ProgramError(ExitCode::usage, "Say --start to begin now, or --at TIME to begin later.");
    }
}

workspace::Operation operationOf(const PlanCommand& command)
{
    return namingOptions([&](QuillmereState& state, Instant now) { planBlock(command, state, now); });
}

/// A block is named among all of them.
base::Reach reachOf(const PlanCommand& command)
{
    return command.model ? base::Reach::years : base::Reach::prompts;
}

/// Dry run, so that wrong options are refused before anything is asked.
bool wouldBegin(PlanCommand command, const Program& program)
{
    if (!command.options.hasTime()) {
        command.options.giveStart();
    }
    return program.wouldAccept(operationOf(command), reachOf(command));
}

bool wantsDraft(const Block& draft, base::Environment& environment)
{
    const std::string title = draft.outcomes.empty() ? "" : draft.outcomes.front().title;
    return agrees(environment, title.empty() ? "Go on with the draft of a block that was not begun?"
                                             : "Go on with the draft of a block, \"" + title + "\"?");
}

void plan(PlanCommand& command, Program& program)
{
    base::Environment& environment = program.environment();
    command.values = program.configuration().values;
    const workspace::Workspace workspace = program.workspace();
    const work::Drafts drafts(workspace.stateDirectory());
    std::optional<workspace::Situation> before;
    if (command.takesDraft) {
        before = workspace.look(reachOf(command));
        command.draft = work::draftOfNextBlock(before->state, drafts, before->now, command.values);
        if (!command.draft && wouldBegin(command, program)) {
            throw ProgramError(ExitCode::refused,
                               "There is no draft of a block. Possible: plan without --draft.");
        }
    }
    if (environment.inputIsTerminal && wouldBegin(command, program)) {
        before = workspace.look(reachOf(command));
        if (!command.takesDraft && !command.model) {
            command.draft = work::draftOfNextBlock(before->state, drafts, before->now, command.values);
            if (command.draft && !wantsDraft(*command.draft, environment)) {
                command.draft.reset();
            }
        }
        command.options.askForMissing(presentBlock(command, before->state, before->now),
                                      {environment, before->state, {before->now, program.hours()}});
    }
    program.change(
        [&](QuillmereState& state, Instant now) {
            operationOf(command)(state, now);
            const std::optional<Instant>& start = state.currentBlock->plannedStart;
            return start ? work::done::scheduledFor(*start, program.hours())
                         : std::string(work::done::blockBegun);
        },
        reachOf(command));
    if (command.draft) {
        work::forgetDraftOfNextBlock(before->state, drafts);
    }
}

}  // namespace

void addPlan(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<PlanCommand>();
    CLI::App* const app = addCommand(line, program, "plan", "Plan a block and begin it, or schedule it",
                                     [command, &program] { plan(*command, program); });
    command->options.addTo(*app);
    CLI::Option* const draft = app->add_flag(
        "--draft", command->takesDraft,
        "Begin with the draft of a block: what was typed, or the words of one that was dropped");
    app->add_option(
           "--like", command->model,
           "Begin with the words and lengths of another block: last, its name as history prints it, or a "
           "template of the configuration")
        ->type_name("MODEL")
        ->check(wellFormedText())
        ->excludes(draft);
}

}  // namespace quillmere::cli
