// Takes a scheduled block back into planning.
#include "cli/commands/commands.hpp"
#include "work/done_text.hpp"

namespace quillmere::cli {

void addEdit(CLI::App& line, Program& program)
{
    addCommand(line, program, "edit", "Take the scheduled block back into planning", [&program] {
        program.change(work::done::scheduleEdited, [](QuillmereState& state, Instant now) {
            WorkflowEngine().editScheduledBlock(state, now);
        });
    });
}

}  // namespace quillmere::cli
