// The values in effect, and where each comes from.
#pragma once

#include "base/json.hpp"
#include "config/configuration.hpp"

#include <filesystem>
#include <iosfwd>
#include <string>

namespace quillmere::cli {

/// Prints the configuration as TOML, so that lines of it can be copied into a file, with the origin of each
/// value as a comment. `directory` has the files; empty: the environment names none.
void printConfiguration(std::ostream& out, const config::Configuration& configuration,
                        const std::filesystem::path& directory);

/// Prints the value of one key alone: a text without quotation marks, anything else as in TOML; returns false
/// and prints nothing when it has none. Throws base::Refusal (`invalidRequest`) when there is no such key.
bool printValue(std::ostream& out, const config::Configuration& configuration, const std::string& key);

/// The same as JSON, with the origin. Throws as `printValue`.
base::Json valueJson(const config::Configuration& configuration, const std::string& key);

/// Values stand as they are written in TOML; null: not set.
base::Json configurationJson(const config::Configuration& configuration,
                             const std::filesystem::path& directory);

}  // namespace quillmere::cli
