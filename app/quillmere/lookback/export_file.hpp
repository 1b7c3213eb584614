// Files that a person asks for.
#pragma once

#include <filesystem>
#include <string_view>

namespace quillmere::app::lookback {

/// Replaces the file, or makes it: its readers see the old one or the new one, never a part. A link is
/// followed, and a file that is replaced keeps its permissions. Throws ProgramError (`fileError`) for what is
/// no regular file, `std::system_error` when the system refuses; what was there is then as it was.
void replaceFile(const std::filesystem::path& file, std::string_view content);

/// Whether the file, its link followed, lies in `directory` itself.
bool liesIn(const std::filesystem::path& file, const std::filesystem::path& directory);

}  // namespace quillmere::app::lookback
