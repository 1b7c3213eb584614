// The questions that a crowd asks, and the questions found afterwards.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace quillmere::test {

/// A different text for every asker and round.
std::string questionOf(int asker, std::uint64_t round);

/// The number of occurrences of each question in the state of a directory.
std::map<std::string, int> questionsIn(const std::filesystem::path& directory);

}  // namespace quillmere::test
