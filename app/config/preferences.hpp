// What a person chooses in programs: one key of `preferences.toml` at a time.
//
// Programs write this file only. The person's own `config.toml` wins, and a surface says so (settingText).
#pragma once

#include "config/configuration.hpp"

#include <filesystem>
#include <string>

namespace quillmere::config {

/// Sets the key to a value as a person types it: 50m, sunday, or in TOML: ["saturday", "sunday"]. The file is
/// replaced in one step and is its owner's alone, as is `directory` when it is missing. Values of other keys
/// are kept, also of keys that are unknown here; comments are not. A value that is empty, such as a list
/// without days, is removed from the file. Sets the umask for a moment: not for programs with threads.
///
/// Throws base::Refusal before anything is written: `invalidRequest` for a name that is no key, a key that
/// the person alone sets, and a value that the key does not take; `unusableData` when the file is no TOML or
/// too large; `fileError` when `directory` is empty. Throws `std::system_error` when the system refuses.
void setPreference(const std::filesystem::path& directory, const std::string& name, const std::string& typed);

/// Removes the key from the file; returns whether it was there. Writes nothing when it was not. Throws as
/// `setPreference`.
bool unsetPreference(const std::filesystem::path& directory, const std::string& name);

/// The value in effect: `block.focus is "50m".` When the person's own file sets it, that is said with the way
/// to change it. Not sanitized.
std::string settingText(const Configuration& configuration, const std::string& name);

}  // namespace quillmere::config
