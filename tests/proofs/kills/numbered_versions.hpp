// States that can tell which version they are, and whether they are of one piece.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::test {

/// A state of about `size` bytes of texts. Each of them begins with the number and a hash of all the rest.
QuillmereState numberedState(std::uint64_t number, std::size_t size);

/// The number that all the texts carry; absent when they differ, when a hash is wrong, or when there are
/// none.
std::optional<std::uint64_t> numberIn(const std::vector<std::string>& texts);

/// The same of questions.
std::optional<std::uint64_t> numberIn(const std::vector<AgentQuestion>& questions);

}  // namespace quillmere::test
