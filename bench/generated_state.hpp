// Made-up histories to measure with.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>

namespace quillmere::bench {

/// A state with `finishedBlocks` blocks of eight reviewed sessions each in its history and a ninth
/// session under way in a current block: prose of usual lengths, some of it in several lines, with
/// quotes and letters beyond ASCII. The same for every call with the same count, identifiers apart.
QuillmereState generatedState(std::size_t finishedBlocks);

}  // namespace quillmere::bench
