// States and records to test with.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// The instant that the samples are about: 2026-11-15T15:00:00Z.
inline constexpr Instant moment{1794754800};

/// An identifier made of one number: ...-0000000000NN.
Identifier identifier(unsigned number);

SessionPlan samplePlan(unsigned number);
SessionReview sampleReview(unsigned number);
BlockReview sampleReflection();

/// Three cycles of 1500 and 300 seconds, two outcomes, no sessions.
Block sampleBlock(unsigned number);

/// A block with `sessionCount` sessions, all ended and reviewed but the last, which has just begun at
/// `moment`.
Block blockInWork(unsigned number, std::int64_t sessionCount);

/// A state as the engine leaves it in `workflowState`: with a block in hand where there is one, and
/// its first session running, ended or followed by a break where that is so. `blockReview` has all
/// three sessions. `complete` has none of it.
QuillmereState stateIn(WorkflowState workflowState);

/// `idle` with a block that waits for `moment` + 3600.
QuillmereState stateWithScheduledBlock();

/// `focusing`, with a history, questions answered and open, and every optional field of every record
/// present somewhere.
QuillmereState fullState();

}  // namespace quillmere::test
