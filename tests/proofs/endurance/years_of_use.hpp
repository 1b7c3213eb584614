// A state after years of use.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>

namespace quillmere::test {

/// Sessions in a finished block.
inline constexpr std::uint64_t sessionsInABlock = 8;

/// An idle state with `blocks` finished blocks in the history, made by the engine, and two answered questions
/// per block. All blocks take the same room in a file, and every instant is a whole second.
QuillmereState stateAfter(std::uint64_t blocks);

}  // namespace quillmere::test
