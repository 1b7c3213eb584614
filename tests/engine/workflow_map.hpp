// Every operation of the engine, with a state in which it succeeds and arguments that it accepts.
#pragma once

#include <quillmere/engine/transition.hpp>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillmere::test {

/// The behaviour of an operation when its step is not possible.
enum class Elsewhere { refuses, doesNothing };

/// One way to call an operation.
struct Arrow {
    std::string_view operation;
    std::string_view when;  ///< distinguishes two arrows of one operation
    Step step;              ///< the step that the operation takes
    Elsewhere elsewhere;

    /// Changes a crowded state (`crowdedStateIn`) so that its workflow state alone decides whether the step
    /// is possible.
    void (*prepare)(QuillmereState& state);

    /// Calls the operation; returns whether it did something.
    bool (*walk)(QuillmereState& state, Instant now);

    /// The workflow state that the step starts from; absent for any state.
    std::optional<WorkflowState> from() const { return transition(step).accepts; }
};

std::span<const Arrow> arrows();

/// "operation, when".
std::string nameOf(const Arrow& arrow);

/// A crowded state, prepared for this arrow. An arrow that starts from any state gets `focusing`.
QuillmereState startOf(const Arrow& arrow);
QuillmereState startOf(const Arrow& arrow, WorkflowState workflowState);

}  // namespace quillmere::test
