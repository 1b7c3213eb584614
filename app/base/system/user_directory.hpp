// Directories of this user, as the environment names them (XDG Base Directory).
#pragma once

#include <filesystem>

namespace quillmere::base {

/// The value of an environment variable if it is an absolute path; otherwise empty.
std::filesystem::path absolutePathIn(const char* variable);

/// The directory that `variable` names if it is an absolute path, otherwise `$HOME/<below>` if HOME is one;
/// empty when the environment names neither.
std::filesystem::path userDirectory(const char* variable, const char* below);

}  // namespace quillmere::base
