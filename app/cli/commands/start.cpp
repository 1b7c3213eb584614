// Begins a scheduled block now.
#include "cli/commands/commands.hpp"

namespace quillmere::cli {

void addStart(CLI::App& line, Program& program)
{
    addCommand(line, program, "start", "Begin the scheduled block now", [&program] {
        program.change("The block has begun.", [](QuillmereState& state, Instant now) {
            WorkflowEngine().startScheduledBlockNow(state, now);
        });
    });
}

}  // namespace quillmere::cli
