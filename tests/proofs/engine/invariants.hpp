// Invariants of every state that the engine can reach from an initial one, independent of the reference
// model.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// Fails the test unless block, sessions, break, next plan and history fit the workflow state.
void expectSound(const QuillmereState& state);

/// Fails the test unless the agent's summary, the widget's and the timer agree about `state` at `now`. The
/// durations must be such that the timer can be derived.
void expectSummariesAgree(const QuillmereState& state, Instant now);

/// Fails the test unless the file of `state` reads back to a state with the same file. A file holds whole
/// seconds, so the state itself may differ by fractions.
void expectReadsBack(const QuillmereState& state);

/// Whether every duration in `state` is finite. The engine accepts an infinite duration, but a file cannot
/// hold one.
bool isFinite(const QuillmereState& state);

}  // namespace quillmere::test
