// Comparing files.
#pragma once

#include <filesystem>

namespace quillmere::workspace {

/// Whether two files are one (two names of it), or have the same bytes. False when one of them cannot be
/// read. Reads from the end: two states differ in their last line, `updated_at`.
bool haveSameContent(const std::filesystem::path& left, const std::filesystem::path& right);

}  // namespace quillmere::workspace
