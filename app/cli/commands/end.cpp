// Ends a focus session early.
#include "cli/commands/commands.hpp"
#include "work/done_text.hpp"

namespace quillmere::cli {

void addEnd(CLI::App& line, Program& program)
{
    addCommand(line, program, "end", "End the focus session", [&program] {
        program.change(work::done::focusEnded,
                       [](QuillmereState& state, Instant now) { WorkflowEngine().endFocus(state, now); });
    });
}

}  // namespace quillmere::cli
