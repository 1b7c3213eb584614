#include "cli/exit_code.hpp"

namespace quillmere::cli {

std::string_view nameOf(ExitCode code)
{
    switch (code) {
        case ExitCode::done: return "done";
        case ExitCode::refused: return "refused";
        case ExitCode::usage: return "usage";
        case ExitCode::urgent: return "urgent";
        case ExitCode::unusableData: return "unusableData";
        case ExitCode::outOfMemory: return "outOfMemory";
        case ExitCode::fileError: return "fileError";
        case ExitCode::lockBusy: return "lockBusy";
    }
    return "unknown";
}

ExitCode exitCodeOf(base::Refusal::Kind kind)
{
    switch (kind) {
        case base::Refusal::Kind::invalidRequest: return ExitCode::usage;
        case base::Refusal::Kind::unusableData: return ExitCode::unusableData;
        case base::Refusal::Kind::fileError: return ExitCode::fileError;
        case base::Refusal::Kind::busy: break;
    }
    return ExitCode::lockBusy;
}

}  // namespace quillmere::cli
