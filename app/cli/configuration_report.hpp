// The values in effect, and where each comes from.
#pragma once

#include "base/json.hpp"
#include "config/configuration.hpp"

#include <filesystem>
#include <iosfwd>

namespace quillmere::cli {

/// Prints the configuration as TOML, so that lines of it can be copied into a file, with the origin of each
/// value as a comment. `directory` has the files; empty: the environment names none.
void printConfiguration(std::ostream& out, const config::Configuration& configuration,
                        const std::filesystem::path& directory);

/// Values stand as they are written in TOML; null: not set.
base::Json configurationJson(const config::Configuration& configuration,
                             const std::filesystem::path& directory);

}  // namespace quillmere::cli
