// Files that the user asks for, such as exports.
#pragma once

#include <filesystem>
#include <string_view>

namespace quillmere::base {

/// The file that `replaceFile` would create or replace. Follows all links, even if the last one is broken.
/// Throws Refusal (`invalidRequest`) for an open file of a process, such as /dev/stdout: the file
/// behind it would be replaced and the open one left empty. Throws `std::system_error` for links in a circle.
std::filesystem::path destinationOf(const std::filesystem::path& file);

/// Whether a path lies in a directory, at any depth. False for a directory that does not exist.
bool liesWithin(const std::filesystem::path& path, const std::filesystem::path& directory);

/// Creates or replaces a file: readers see the old content or the new, never a part. Follows links and keeps
/// the permissions of the file. Throws what `destinationOf` throws, Refusal (`fileError`) unless it is a
/// regular file, and `std::system_error` with the path as given when the system refuses; the old file is then
/// unchanged.
void replaceFile(const std::filesystem::path& file, std::string_view content);

/// The same for a file that this program alone writes: a link is replaced. Throws `std::system_error` with
/// the file's path.
void replaceOwnFile(const std::filesystem::path& file, std::string_view content);

}  // namespace quillmere::base
