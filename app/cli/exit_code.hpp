// How a run ends (sysexits.h where it has a code).
#pragma once

#include <stdexcept>
#include <string>

namespace quillmere::cli {

enum class ExitCode {
    done = 0,
    refused = 1,        ///< by the engine
    usage = 2,          ///< the command line does not say what to do
    urgent = 33,        ///< done, and the person should look: what i3blocks takes it for
    unusableData = 65,  ///< a file that cannot be read as what it should be
    outOfMemory = 71,
    fileError = 74,  ///< the system refuses
    lockBusy = 75,   ///< somebody else holds the directory; trying again helps
};

/// An end other than `done`, with a message for the person.
class ProgramError : public std::runtime_error {
public:
    ProgramError(ExitCode code, const std::string& message) : std::runtime_error(message), code_(code) {}

    ExitCode code() const noexcept { return code_; }

private:
    ExitCode code_;
};

}  // namespace quillmere::cli
