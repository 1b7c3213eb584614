// Ends a focus session early.
#include "cli/commands/commands.hpp"

namespace quillmere::cli {

void addEnd(CLI::App& line, Program& program)
{
    addCommand(line, program, "end", "End the focus session", [&program] {
        program.change("The focus session has ended.",
                       [](QuillmereState& state, Instant now) { WorkflowEngine().endFocus(state, now); });
    });
}

}  // namespace quillmere::cli
