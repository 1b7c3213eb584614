// Paths in command lines for a shell.
#pragma once

#include <filesystem>
#include <string>

namespace quillmere::doctor {

/// The path, an absolute one, as one word of a shell (POSIX), in single quotes where it needs them.
std::string shellWord(const std::filesystem::path& path);

}  // namespace quillmere::doctor
