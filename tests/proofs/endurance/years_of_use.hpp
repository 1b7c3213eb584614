// What one person leaves behind in years.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>

namespace quillmere::test {

/// Sessions in a block, worked to its end.
inline constexpr std::uint64_t sessionsInABlock = 8;

/// Idle, with `blocks` finished blocks in the history, made by the engine, and two answered questions a
/// block. Every block takes as much room in a file as any other, and every instant is a whole second.
QuillmereState stateAfter(std::uint64_t blocks);

}  // namespace quillmere::test
