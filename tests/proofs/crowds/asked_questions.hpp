// The questions that a crowd asks, and the questions found afterwards.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace quillmere::test {

/// The questions that each asker asks, one a round. Fewer in the short form.
inline constexpr std::uint64_t mostRounds = 250;
std::uint64_t roundCount();

/// A different text for every asker and round.
std::string questionOf(int asker, std::uint64_t round);

/// The number of occurrences of each question in the state of a directory.
std::map<std::string, int> questionsIn(const std::filesystem::path& directory);

}  // namespace quillmere::test
