// The map of the workflow as the tests know it: written down by hand, and taken from nothing in core.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillmere::test {

/// What an operation does in a state that it does not accept.
enum class Elsewhere { isRefused, hasNothingToDo };

/// One arrow of the map, with the means of walking along it.
struct Arrow {
    std::string_view operation;
    std::string_view when;              ///< tells two arrows of one operation apart
    std::optional<WorkflowState> from;  ///< absent: any state
    std::optional<WorkflowState> to;    ///< absent: the state it was in
    Elsewhere elsewhere;

    /// Makes all else hold in a crowded state (`crowdedStateIn`), so that `from` alone decides.
    void (*prepare)(QuillmereState& state);

    /// Calls the operation; says whether it reports that it did something.
    bool (*walk)(QuillmereState& state, Instant now);
};

std::span<const Arrow> arrows();

/// "operation, when".
std::string nameOf(const Arrow& arrow);

/// A crowded state, prepared for this arrow. An arrow from any state is walked from `focusing`.
QuillmereState startOf(const Arrow& arrow);
QuillmereState startOf(const Arrow& arrow, WorkflowState workflowState);

}  // namespace quillmere::test
