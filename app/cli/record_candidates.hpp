// What the state holds, as candidates by the names that commands take.
#pragma once

#include "base/text/hours.hpp"
#include "cli/candidate.hpp"

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::cli {

/// The finished blocks, the newest first.
Candidates blockCandidates(const QuillmereState& state, base::Hours hours);

/// The sessions of the current block that have ended, then the finished blocks, each of the newest ten
/// followed by its sessions: ".1", "9F1C", "9F1C.1".
Candidates sessionAndBlockCandidates(const QuillmereState& state, base::Hours hours);

/// The newest twelve months in which a block was finished: "2026-10".
Candidates monthCandidates(const QuillmereState& state);

/// The open questions by number, then the answered ones by name.
Candidates questionCandidates(const QuillmereState& state);

}  // namespace quillmere::cli
