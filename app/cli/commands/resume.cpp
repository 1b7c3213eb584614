// Resumes a paused focus session.
#include "cli/commands.hpp"
#include "work/done_text.hpp"

namespace quillmere::cli {

void addResume(CLI::App& line, Program& program)
{
    addCommand(line, program, "resume", "Go on with the paused focus session", [&program] {
        program.change(work::done::focusResumed,
                       [](QuillmereState& state, Instant now) { WorkflowEngine().resumeFocus(state, now); });
    });
}

}  // namespace quillmere::cli
