// The finished blocks of two copies.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <vector>

namespace quillmere::merge {

/// What a side brings to the merged history.
struct Past {
    const QuillmereState& side;
    std::optional<Block> left;  ///< its current block, where that is no longer under way
};

/// The blocks of both, each once and joined, without the one that is `underWay`. Where neither side has all
/// blocks the newest is first: by its end or, without one, by the last start in it.
std::vector<Block> mergedHistory(const Past& a, const Past& b, const std::optional<Identifier>& underWay);

}  // namespace quillmere::merge
