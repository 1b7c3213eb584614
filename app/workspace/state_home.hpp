// What the program keeps beside the files of a person, never among them: earlier versions, drafts, and
// which notices were given.
#pragma once

#include <filesystem>

namespace quillmere::workspace {

/// `$XDG_STATE_HOME` when it is an absolute path, otherwise `$HOME/.local/state` when HOME is one (XDG Base
/// Directory); empty when the environment names neither.
std::filesystem::path stateHomeOfThisUser();

/// Where everything is kept that belongs to the files in `directory`, an absolute path: a directory of its
/// own under `quillmere` in the state home, which need not exist. However the path is spelled, links in it
/// included, it is the same for the same directory. Empty when `stateHome` is, and when the place would lie
/// in `directory` itself.
std::filesystem::path stateDirectory(const std::filesystem::path& directory,
                                     const std::filesystem::path& stateHome);

}  // namespace quillmere::workspace
