#include "cli/past_time.hpp"

#include "base/text/local_time.hpp"
#include "cli/exit_code.hpp"

namespace quillmere::cli {

Instant pastTime(const std::string& option, const std::string& text, Instant now)
{
    if (const std::optional<Instant> instant = base::pastInstantFromLocalText(text, now)) {
        return *instant;
    }
    throw ProgramError(ExitCode::usage, "--" + option + ": \"" + text +
                                            "\" is no local time, such as 14:20, 14:20:30 or "
                                            "\"2026-11-15 14:20\".");
}

}  // namespace quillmere::cli
