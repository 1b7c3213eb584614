// Discards a scheduled block.
#include "commands/commands.hpp"

namespace quillmere::app {

void addCancel(CLI::App& line, Program& program)
{
    addCommand(line, program, "cancel", "Discard the scheduled block", [&program] {
        program.change("The scheduled block is discarded.", [](QuillmereState& state, Instant now) {
            WorkflowEngine().cancelScheduledBlock(state, now);
        });
    });
}

}  // namespace quillmere::app
