// undo and redo: the last change taken back, and made again.
#include "work/undo/undo_step.hpp"

#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/kept_versions.hpp"
#include "cli/prompt.hpp"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace quillmere::cli {
namespace {

using work::UndoDirection;

void takeStep(UndoDirection direction, bool isConfirmed, Program& program)
{
    requireVersionsKept(program);
    const workspace::Workspace workspace = program.workspace();
    const workspace::Situation present = workspace.look();
    const std::optional<work::UndoStep> step =
        work::nextStep(direction, workspace, present.state, {present.now, program.hours()});
    if (!step) {
        throw ProgramError(ExitCode::refused, work::noStepText(direction));
    }
    if (!isConfirmed) {
        requireAgreement(program.environment(), work::offerText(*step));
    }
    program.take(*step);
}

void add(CLI::App& line, Program& program, UndoDirection direction, const std::string& name,
         const std::string& purpose)
{
    const auto isConfirmed = std::make_shared<bool>(false);
    CLI::App* const app = addCommand(line, program, name, purpose, [isConfirmed, direction, &program] {
        takeStep(direction, *isConfirmed, program);
    });
    app->add_flag("--yes", *isConfirmed, "Do it without asking");
}

}  // namespace

void addUndo(CLI::App& line, Program& program)
{
    add(line, program, UndoDirection::undo, "undo", "Take the last change back; again and again");
}

void addRedo(CLI::App& line, Program& program)
{
    add(line, program, UndoDirection::redo, "redo", "Make the change again that was undone last");
}

}  // namespace quillmere::cli
