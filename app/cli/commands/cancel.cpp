// Discards a scheduled block, backs out of planning one, or drops one before its first session.
#include "amendments/back_out.hpp"
#include "amendments/drop.hpp"
#include "amendments/possible.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/describe.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"
#include "work/forms/block_draft.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

struct CancelCommand {
    bool isConfirmed = false;
    // What becomes of a scheduled block whose start has passed while it was edited.
    bool starts = false;
    std::optional<std::string> at;
    bool drops = false;
};

/// What the command does in a state.
enum class Subject { schedule, planning, editing, editingWithPassedStart, block };

Subject subjectIn(const QuillmereState& state, Instant now)
{
    if (amendments::isPossible(amendments::Kind::drop, state)) {
        return Subject::block;
    }
    if (!amendments::isPossible(amendments::Kind::backOut, state)) {
        return Subject::schedule;
    }
    if (!state.currentBlock || !state.currentBlock->plannedStart) {
        return Subject::planning;
    }
    return *state.currentBlock->plannedStart > now ? Subject::editing : Subject::editingWithPassedStart;
}

std::string blockInWords(const Block& block)
{
    const std::string title = block.outcomes.empty() ? "" : block.outcomes.front().title;
    return title.empty() ? "the block" : "the block \"" + base::sanitized(title) + "\"";
}

std::optional<amendments::PassedStart> choiceOf(const CancelCommand& command, Instant now)
{
    if (command.starts) {
        return amendments::StartNow{};
    }
    if (command.drops) {
        return amendments::DropBlock{};
    }
    return command.at ? std::optional<amendments::PassedStart>(
                            amendments::StartAt{work::startFrom({"at", *command.at}, now)})
                      : std::nullopt;
}

void askForChoice(CancelCommand& command, base::Environment& environment, const base::SeenFrom& here)
{
    const std::string answer = askUntil(
        environment,
        {.text = "The start of the block has passed while it was edited. Start it now, at another time, or "
                 "drop it? (now, 14:30, drop)"},
        [&](const std::string& word) {
            if (word != "now" && word != "drop") {
                work::requireToCome("at", work::startFrom({"at", word}, here.now), here);
            }
        });
    command.starts = answer == "now";
    command.drops = answer == "drop";
    command.at = command.starts || command.drops ? std::nullopt : std::optional(answer);
}

/// Without a state home there are no drafts, and no versions either.
std::string whatBecomesOfTheWords(bool areDraftsKept)
{
    return areDraftsKept ? "Its words stay a draft that plan offers."
                         : "Its words are lost, since no drafts are kept: set XDG_STATE_HOME, or HOME.";
}

/// Asks for what the command line leaves open.
void settle(CancelCommand& command, Subject subject, const workspace::Situation& situation,
            bool areDraftsKept, Program& program)
{
    base::Environment& environment = program.environment();
    const bool mayAsk = environment.inputIsTerminal;
    if (subject == Subject::editingWithPassedStart && !choiceOf(command, situation.now)) {
        if (!mayAsk) {
            throw ProgramError(ExitCode::refused,
                               "The start of the scheduled block has passed while it was edited. Possible: "
                               "--start begins it now, --at TIME gives it another time, --drop drops it.");
        }
        askForChoice(command, environment, {situation.now, program.hours()});
    } else if (subject == Subject::block && !command.isConfirmed) {
        requireAgreement(environment, "Drop " + blockInWords(*situation.state.currentBlock) + "? " +
                                          whatBecomesOfTheWords(areDraftsKept));
    } else if (subject == Subject::schedule && mayAsk && !command.isConfirmed &&
               isPossible(Step::cancelScheduledBlock, situation.state)) {
        requireAgreement(environment, "Discard " + blockInWords(*situation.state.currentBlock) + "? " +
                                          whatBecomesOfTheWords(areDraftsKept));
    }
}

std::string apply(const CancelCommand& command, Subject subject, QuillmereState& state,
                  const base::SeenFrom& here)
{
    const Instant now = here.now;
    switch (subject) {
        case Subject::schedule:
            WorkflowEngine().cancelScheduledBlock(state, now);
            return std::string(work::done::scheduleCancelled);
        case Subject::block: amendments::drop(state, now); return std::string(work::done::blockDropped);
        case Subject::planning:
            amendments::backOut(state, {}, now);
            return std::string(work::done::planningLeft);
        case Subject::editing:
            amendments::backOut(state, {}, now);
            return std::string(work::done::scheduleKept);
        case Subject::editingWithPassedStart: break;
    }
    amendments::backOut(state, choiceOf(command, now), now);
    if (command.at) {
        return work::done::scheduledFor(*state.currentBlock->plannedStart, here.hours);
    }
    return std::string(command.starts ? work::done::blockBegun : work::done::blockDropped);
}

void cancel(CancelCommand& command, Program& program)
{
    const workspace::Workspace workspace = program.workspace();
    const workspace::Situation situation = workspace.look(base::Reach::present);
    const Subject subject = subjectIn(situation.state, situation.now);
    const work::Drafts drafts(workspace.stateDirectory());
    settle(command, subject, situation, drafts.areKept(), program);
    std::string done;
    const workspace::Operation operation = work::keepingWords(
        [&](QuillmereState& state, Instant now) {
            if (subjectIn(state, now) != subject) {
                throw ProgramError(ExitCode::refused, "Changed meanwhile: " +
                                                          work::describeInASentence(situation.state, state,
                                                                                    {now, program.hours()}) +
                                                          " Nothing was cancelled.");
            }
            done = apply(command, subject, state, {now, program.hours()});
        },
        drafts, program.configuration().values);
    program.change([&](QuillmereState& state, Instant now) {
        operation(state, now);
        return done;
    });
}

}  // namespace

void addCancel(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<CancelCommand>();
    CLI::App* const app = addCommand(
        line, program, "cancel", "Leave the planning of a block, or drop a block that has no session yet",
        [command, &program] {
            try {
                cancel(*command, program);
            } catch (const work::Unacceptable& refusal) {
                throw ProgramError(ExitCode::usage, "--" + refusal.field() + ": " + refusal.what());
            }
        });
    app->add_flag("--yes", command->isConfirmed, "Drop the block without asking");
    CLI::Option* const start =
        app->add_flag("--start", command->starts,
                      "When the start of the block has passed while it was edited: begin it now");
    CLI::Option* const at = app->add_option("--at", command->at, "The same: give it another start");
    at->check(wellFormedText())->excludes(start);
    app->add_flag("--drop", command->drops, "The same: drop it")->excludes(start)->excludes(at);
}

}  // namespace quillmere::cli
