// Discards a scheduled block.
#include "cli/commands/commands.hpp"
#include "work/done_text.hpp"

namespace quillmere::cli {

void addCancel(CLI::App& line, Program& program)
{
    addCommand(line, program, "cancel", "Discard the scheduled block", [&program] {
        program.change(work::done::scheduleCancelled, [](QuillmereState& state, Instant now) {
            WorkflowEngine().cancelScheduledBlock(state, now);
        });
    });
}

}  // namespace quillmere::cli
