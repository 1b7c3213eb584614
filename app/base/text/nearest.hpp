// The word that was probably meant by a misspelt one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::base {

/// How many letters must be inserted, deleted or replaced, or neighbours swapped, to make one word of the
/// other: the optimal string alignment distance, in bytes.
std::size_t editDistance(std::string_view one, std::string_view other);

/// The word of `known` that differs least from `word`, the first of several; absent when none is close: one
/// edit is allowed for every three letters, at least one.
std::optional<std::string> nearest(std::string_view word, const std::vector<std::string>& known);

}  // namespace quillmere::base
