// Made-up histories, to compute figures from in two ways.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// Ten weeks of blocks up to `now`, on whole minutes, with what real ones have too: blocks that were finished
/// early or had more sessions than planned, or no outcome, or no reflection; sessions without a review, with
/// a pause, over midnight, with an end before their start because the clock was set back; texts that differ
/// in case and space. The last block may still be running. The same for the same seed, instant and time zone.
QuillmereState generatedHistory(unsigned seed, Instant now);

}  // namespace quillmere::test
