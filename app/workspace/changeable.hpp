// Paths at which a state file cannot be replaced.
#pragma once

#include <filesystem>

namespace quillmere::workspace {

/// Throws Refusal (`fileError`) when the state file is a symbolic link: a save would replace the link, and
/// two directories with links to one file would have two locks. The message names the target and the way out.
/// Throws `std::system_error` (ENAMETOOLONG) when the path has no room for the names of temporary files, so
/// that no directory is created for it.
void requireChangeable(const std::filesystem::path& stateFile);

}  // namespace quillmere::workspace
