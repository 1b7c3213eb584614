// The exit codes of the program (sysexits.h where it has a code).
#pragma once

#include "base/refusal.hpp"

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmere::cli {

enum class ExitCode {
    done = 0,
    refused = 1,        ///< by the engine; or an examination found something wrong
    usage = 2,          ///< the command line is wrong or incomplete
    urgent = 33,        ///< done, and i3blocks is to mark its block as urgent
    unusableData = 65,  ///< a file does not hold what it should
    outOfMemory = 71,
    fileError = 74,  ///< the system refused to read or write, or its clock shows no date of the files
    lockBusy = 75,   ///< another program holds the directory; trying again helps
};

/// The name of a code in JSON: "lockBusy".
std::string_view nameOf(ExitCode code);

ExitCode exitCodeOf(base::Refusal::Kind kind);

/// Ends the run with a code other than `done` and a message for the person.
class ProgramError : public std::runtime_error {
public:
    ProgramError(ExitCode code, const std::string& message) : std::runtime_error(message), code_(code) {}

    ExitCode code() const noexcept { return code_; }

private:
    ExitCode code_;
};

}  // namespace quillmere::cli
