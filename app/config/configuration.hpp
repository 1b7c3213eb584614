// The configuration of a person: the values in effect, where each comes from, and what was wrong.
//
// Two files in TOML: `preferences.toml` holds what programs set, `config.toml` is the person's own. No
// program writes the person's file, and its values win.
#pragma once

#include "config/toml_text.hpp"
#include "config/values.hpp"

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::config {

inline constexpr std::string_view ownFileName = "config.toml";
inline constexpr std::string_view preferencesFileName = "preferences.toml";

/// A larger file is left out.
inline constexpr std::size_t mostFileBytes = 64 * 1024;

/// A place in a file of the configuration.
struct Origin {
    std::filesystem::path file;
    TextPlace place;
};

/// Something that cannot be used, and is left out.
struct Problem {
    std::filesystem::path file;
    std::optional<TextPlace> place;  ///< absent when the file cannot be read
    std::string sentence;            ///< what is wrong and what is accepted
};

struct Configuration {
    Values values = {};
    /// Of each key that is set, by its name with its table: "block.focus", "template.report.why". Keys that
    /// are not here have their default.
    std::map<std::string, Origin> origins = {};
    std::vector<Problem> problems = {};
};

/// The directory of the two files: `quillmere` in `$XDG_CONFIG_HOME` when that is an absolute path, otherwise
/// in `$HOME/.config` when HOME is one (XDG Base Directory); empty when the environment names neither.
std::filesystem::path directoryOfThisUser();

/// The file of this name in `directory`. Throws base::Refusal (`fileError`) when `directory` is empty.
std::filesystem::path fileIn(const std::filesystem::path& directory, std::string_view name);

/// Reads the two files in `directory`; a missing file sets nothing, and an empty `directory` has none. Files
/// and values that cannot be used are left out and become problems. Throws `std::bad_alloc` only.
Configuration read(const std::filesystem::path& directory);

/// Adds the values of a file with this text; they win over those that are there.
void add(Configuration& configuration, std::string_view text, const std::filesystem::path& file);

/// "/home/anna/.config/quillmere/config.toml:3:9: block.focus must be …". Not sanitized.
std::string problemText(const Problem& problem);

/// The path with "~/" at its front replaced by `$HOME/`. Throws base::Refusal (`invalidRequest`) when HOME is
/// not an absolute path.
std::filesystem::path expanded(const std::filesystem::path& path);

}  // namespace quillmere::config
