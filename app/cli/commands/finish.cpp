// Brings a block to its end before its last session.
#include "amendments/finish_now.hpp"
#include "cli/commands.hpp"
#include "work/done_text.hpp"

namespace quillmere::cli {

void addFinish(CLI::App& line, Program& program)
{
    addCommand(line, program, "finish", "Bring the block to its end; its remaining sessions are left out",
               [&program] {
                   program.change(work::done::blockAtItsEnd, [](QuillmereState& state, Instant now) {
                       amendments::finishNow(state, now);
                   });
               });
}

}  // namespace quillmere::cli
