#include "cli/kept_versions.hpp"

#include "cli/exit_code.hpp"
#include "cli/program.hpp"

namespace quillmere::cli {

void requireVersionsKept(Program& program)
{
    if (!program.workspace().stateDirectory().empty()) {
        return;
    }
    const std::filesystem::path& stateHome = program.environment().stateHome;
    throw ProgramError(ExitCode::refused,
                       stateHome.empty()
                           ? "No versions are kept: set XDG_STATE_HOME, or HOME, to an absolute path."
                           : "No versions are kept: their directory, " + (stateHome / "quillmere").string() +
                                 ", lies in the directory of the files. Set XDG_STATE_HOME to another one.");
}

}  // namespace quillmere::cli
