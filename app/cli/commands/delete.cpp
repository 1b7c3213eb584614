// Deletes a finished block; removes one from versions.
#include "amendments/delete_block.hpp"
#include "base/refusal.hpp"
#include "cli/block_number.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/deletion.hpp"
#include "work/done_text.hpp"
#include "work/naming.hpp"
#include "work/short_names.hpp"
#include "workspace/retention.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>
#include <ostream>

namespace quillmere::cli {
namespace {

struct DeleteCommand {
    std::string name;
    bool isConfirmed = false;
    bool inVersionsToo = false;
};

std::string deletionQuestion(const Block& block, const DeleteCommand& command, base::Hours hours)
{
    return work::deletionQuestion(block, hours) +
           (command.inVersionsToo ? " In the versions too, so that nothing brings it back." : "");
}

std::string forgottenText(const workspace::Forgotten& forgotten)
{
    std::string text = "Versions without it now: " + std::to_string(forgotten.rewritten) +
                       "; deleted, because it was in work there: " + std::to_string(forgotten.deleted) + ".";
    for (const std::int64_t number : forgotten.unreadable) {
        text += " Version " + std::to_string(number) + " cannot be read and may still hold it.";
    }
    return text;
}

/// A block that only versions hold, by the start of its identifier.
std::optional<Identifier> blockInVersions(const std::string& name, const workspace::Workspace& workspace)
{
    std::vector<Identifier> blocks = workspace::blocksInVersions(workspace.versions());
    std::erase_if(blocks, [&](const Identifier& block) { return !work::isNamed(block, name); });
    return blocks.size() == 1 ? std::optional(blocks.front()) : std::nullopt;
}

/// With --versions-too, removes a block from the versions that is no longer in the history. Returns whether
/// it did.
bool couldDeleteInVersionsAlone(const DeleteCommand& command, const QuillmereState& state, Program& program)
{
    const workspace::Workspace workspace = program.workspace();
    if (!command.inVersionsToo || work::isBlockNamed(command.name, state)) {
        return false;
    }
    const std::optional<Identifier> block = blockInVersions(command.name, workspace);
    if (!block) {
        return false;
    }
    if (!command.isConfirmed) {
        requireAgreement(program.environment(), "Remove block " + block->text() + " from the versions?");
    }
    const std::string done = forgottenText(workspace.forgetInVersions(*block));
    if (program.settings().json) {
        program.print({{"done", done}});
    } else {
        program.environment().out << done << '\n';
    }
    return true;
}

void deleteBlock(DeleteCommand& command, Program& program)
{
    const QuillmereState state = program.workspace().look().state;
    command.name = nameWithoutNumber(command.name, !command.isConfirmed, state, program);
    if (couldDeleteInVersionsAlone(command, state, program)) {
        return;
    }
    const Block& block = work::blockNamed(command.name, state);
    const auto operation = [&](QuillmereState& present, Instant now) {
        amendments::deleteBlock(present, block.id, now);
        return command.inVersionsToo ? std::string(work::done::blockDeleted)
                                     : work::deletedText(block, state);
    };
    if (!command.isConfirmed && program.wouldAccept(operation, base::Reach::years)) {
        requireAgreement(program.environment(), deletionQuestion(block, command, program.hours()));
    }
    program.change(operation, base::Reach::years, [&]() -> std::string {
        return command.inVersionsToo ? " " + forgottenText(program.workspace().forgetInVersions(block.id))
                                     : "";
    });
}

}  // namespace

void addDelete(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<DeleteCommand>();
    CLI::App* const app = addCommand(line, program, "delete", "Delete a finished block",
                                     [command, &program] { deleteBlock(*command, program); });
    app->add_option("name", command->name,
                    "The block, as history names it; on a terminal also its number, 1 for the last one")
        ->required()
        ->type_name("BLOCK")
        ->check(wellFormedText());
    app->add_flag("--yes", command->isConfirmed, "Delete it without asking");
    app->add_flag("--versions-too", command->inVersionsToo,
                  "Remove it from the versions too, also when it was deleted before");
}

}  // namespace quillmere::cli
