// What holds in every state that operations lead to from an initial one, whoever states the rules.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// Fails the test where block, sessions, break, next plan or history do not fit the workflow state.
void expectSound(const QuillmereState& state);

/// Fails the test where the agent's summary, the widget's and the timer say different things about `state` at
/// `now`. Lengths of time must be such that the timer can be derived.
void expectSummariesAgree(const QuillmereState& state, Instant now);

/// Fails the test where the file of `state` does not read back to a state with the same file. A file holds
/// whole seconds, so that the state itself may differ by fractions.
void expectReadsBack(const QuillmereState& state);

/// Whether every length of time in `state` is finite. The engine accepts an infinite duration; no file holds
/// one.
bool isFinite(const QuillmereState& state);

}  // namespace quillmere::test
