// Every kind of state that a file can bring: each workflow state with and without a block, with each kind of
// start or of session that makes a difference there.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <vector>

namespace quillmere::test {

/// A state with a text of its own in every field that holds a text.
struct LoadableState {
    std::string name;
    QuillmereState state;
    std::vector<std::string> blockWords;    ///< the texts of the block
    std::vector<std::string> sessionWords;  ///< the texts of its session
    /// Texts that the way out may drop or replace: of the next plan, and of a review or a reflection before
    /// its time.
    std::vector<std::string> earlyWords;
};

/// As they are at `moment`. Each has a plan of a next session, a question and a finished block.
std::vector<LoadableState> loadableStates();

/// Where the work stands, in the words of docs/ways-out.md. The state must be caught up to `moment`.
std::string situationOf(const QuillmereState& state);

}  // namespace quillmere::test
