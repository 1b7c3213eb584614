// Pauses a focus session.
#include "cli/commands/commands.hpp"

namespace quillmere::cli {

void addPause(CLI::App& line, Program& program)
{
    addCommand(line, program, "pause", "Pause the focus session", [&program] {
        program.change("Paused.",
                       [](QuillmereState& state, Instant now) { WorkflowEngine().pauseFocus(state, now); });
    });
}

}  // namespace quillmere::cli
