// Generated histories for the benchmarks.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>

namespace quillmere::bench {

/// A state with `finishedBlocks` blocks of eight reviewed sessions each in its history, and a ninth session
/// running in a current block. The texts are prose of usual lengths, some with several lines, with quotes and
/// non-ASCII letters. Every call with the same count returns the same state, except for the identifiers.
QuillmereState generatedState(std::size_t finishedBlocks);

/// The same finished blocks with nothing running, and for each of them ten questions that were answered on
/// its day.
QuillmereState generatedYears(std::size_t finishedBlocks);

}  // namespace quillmere::bench
