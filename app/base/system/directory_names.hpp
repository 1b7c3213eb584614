// The names in a directory.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quillmere::base {

/// All names but "." and "..", in no order. Where the directory cannot be read, or not to its end, sets
/// `error` and returns what was read. Throws `std::bad_alloc`: the iterator of the standard library, as g++
/// 12 has it, would end the program.
std::vector<std::string> namesInDirectory(const std::filesystem::path& directory, std::error_code& error);

/// The same. Throws `std::system_error` where the directory cannot be read.
std::vector<std::string> namesInDirectory(const std::filesystem::path& directory);

}  // namespace quillmere::base
