// The directory for data about the three files: earlier versions, drafts, and a record of the notices given.
// It is never inside the directory of the files.
#pragma once

#include <filesystem>

namespace quillmere::workspace {

/// `$XDG_STATE_HOME` when it is an absolute path, otherwise `$HOME/.local/state` when HOME is one (XDG Base
/// Directory); empty when the environment names neither.
std::filesystem::path stateHomeOfThisUser();

/// The directory for data about the files in `directory` (an absolute path): `quillmere/<digest of the path>`
/// in the state home; it need not exist. Links are resolved, so every spelling of a path gives the same
/// result. Empty when `stateHome` is empty, and when the result would lie inside `directory`.
std::filesystem::path stateDirectory(const std::filesystem::path& directory,
                                     const std::filesystem::path& stateHome);

}  // namespace quillmere::workspace
