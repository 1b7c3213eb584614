// What is examined.
#pragma once

#include "base/text/hours.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/records/instant.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace quillmere::doctor {

/// How the directory of the files was chosen.
enum class Origin {
    option,         ///< named by the person: --directory
    configuration,  ///< named in the configuration
    dataHome,       ///< XDG_DATA_HOME
    home,           ///< HOME
};

/// The origin of the directory of this user's files when no option names one.
Origin usualOrigin();

/// The state file as it was read.
struct StateReading {
    bool exists = false;
    std::uintmax_t size = 0;                   ///< bytes
    std::optional<QuillmereState> state = {};  ///< absent when there is none, and after a failure
    std::optional<std::string> failure = {};   ///< why it cannot be used, in words
    bool isSpoilt = false;                     ///< whether the failure is in what it contains
};

struct Subject {
    workspace::Workspace workspace;
    std::filesystem::path stateHome;  ///< for versions, drafts and notices; may be empty
    Origin origin;
    Instant now;                                  ///< by the clock as it is, which may be far off
    base::Hours hours = base::Hours::twentyFour;  ///< how times are shown

    const std::filesystem::path& directory() const { return workspace.directory(); }
};

/// A command line of this program for the same files: "quillmere tick", with --directory where that chose
/// them.
std::string commandLine(const Subject& subject, const std::string& command);

/// Reads the state file, and screens it as a command does. Never throws for what the file contains or for
/// what the system refuses.
StateReading readState(const workspace::Workspace& workspace);

}  // namespace quillmere::doctor
