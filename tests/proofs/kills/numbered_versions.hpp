// States that carry a version number and can detect a mixture of versions.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::test {

/// A state with about `size` bytes of texts. Each text starts with the number and a hash of the rest.
QuillmereState numberedState(std::uint64_t number, std::size_t size);

/// The common number of all texts; absent when they differ, when a hash is wrong, or without any text.
std::optional<std::uint64_t> numberIn(const std::vector<std::string>& texts);

/// The same for the texts of questions.
std::optional<std::uint64_t> numberIn(const std::vector<AgentQuestion>& questions);

}  // namespace quillmere::test
