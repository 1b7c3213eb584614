// Files that killed programs have left.
#pragma once

#include <quillmere/records/instant.hpp>

#include <filesystem>
#include <string_view>

namespace quillmere::workspace {

/// Deletes the temporary files ".NAME.UUID.tmp" of one file in a directory that are more than an hour old:
/// their program was killed, since a save takes seconds. Those that cannot be deleted stay.
void removeStaleTemporaries(const std::filesystem::path& directory, std::string_view name, Instant now);

}  // namespace quillmere::workspace
