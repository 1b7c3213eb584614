// Begins a scheduled block now.
#include "cli/commands.hpp"
#include "work/done_text.hpp"

namespace quillmere::cli {

void addStart(CLI::App& line, Program& program)
{
    addCommand(line, program, "start", "Begin the scheduled block now", [&program] {
        program.change(work::done::blockBegun, [](QuillmereState& state, Instant now) {
            WorkflowEngine().startScheduledBlockNow(state, now);
        });
    });
}

}  // namespace quillmere::cli
