// The questions that a crowd asks, and those that are found afterwards.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace quillmere::test {

/// No two are alike.
std::string questionOf(int asker, std::uint64_t round);

/// How often each question stands in the state of a directory.
std::map<std::string, int> questionsIn(const std::filesystem::path& directory);

}  // namespace quillmere::test
