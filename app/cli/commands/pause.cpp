// Pauses a focus session.
#include "cli/commands.hpp"
#include "work/done_text.hpp"

namespace quillmere::cli {

void addPause(CLI::App& line, Program& program)
{
    addCommand(line, program, "pause", "Pause the focus session", [&program] {
        program.change(work::done::focusPaused,
                       [](QuillmereState& state, Instant now) { WorkflowEngine().pauseFocus(state, now); });
    });
}

}  // namespace quillmere::cli
