// Sample states and records.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <vector>

namespace quillmere::test {

/// The main instant of the samples: 2026-11-15T15:00:00Z.
inline constexpr Instant moment{1794754800};

/// An identifier with the given last digits: ...-0000000000NN.
Identifier identifier(unsigned number);

SessionPlan samplePlan(unsigned number);
SessionReview sampleReview(unsigned number);
BlockReview sampleReflection();

/// Three cycles of 1500 and 300 seconds, two outcomes, no sessions.
Block sampleBlock(unsigned number);

/// A block with `sessionCount` sessions. All are ended and reviewed except the last, which started at
/// `moment`.
Block blockInWork(unsigned number, std::int64_t sessionCount);

/// Finished blocks a day apart, the newest first, which was finished at an instant.
std::vector<Block> finishedDaily(unsigned count, Instant last);

/// Adds a history and closed questions that lie beyond what displays and changes of the present look at.
void addEarlierYears(QuillmereState& state);

/// A state as the engine leaves it in `workflowState`. Has a current block where the engine has one, with its
/// first session running, ended or followed by a break accordingly. `blockReview` has all three sessions;
/// `complete` has no block.
QuillmereState stateIn(WorkflowState workflowState);

/// `idle` with a block scheduled for `moment` + 3600.
QuillmereState stateWithScheduledBlock();

/// `focusing`, with a history and answered and open questions. Every optional field of every record is
/// present somewhere.
QuillmereState fullState();

}  // namespace quillmere::test
