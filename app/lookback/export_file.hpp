// Files that a person asks for.
#pragma once

#include <filesystem>
#include <string_view>

namespace quillmere::lookback {

/// The file that would be made or replaced: all links are followed, also the last one, wherever it leads.
/// Throws Refusal (`invalidRequest`) for a path that names an open file of a process, such as /dev/stdout:
/// the file behind it would be replaced and the open one left empty. Throws `std::system_error` when links
/// lead nowhere.
std::filesystem::path exportPlace(const std::filesystem::path& file);

/// Whether a place lies in a directory, however deep; nothing lies in one that there is not.
bool liesWithin(const std::filesystem::path& place, const std::filesystem::path& directory);

/// Replaces the file, or makes it: its readers see the old one or the new one, never a part. A link is
/// followed, and a file that is replaced keeps its permissions. Throws what `exportPlace` throws,
/// Refusal
/// (`fileError`) for what is no regular file, `std::system_error` with the path as it was given when the
/// system refuses; what was there is then as it was.
void replaceFile(const std::filesystem::path& file, std::string_view content);

}  // namespace quillmere::lookback
