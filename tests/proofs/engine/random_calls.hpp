// Random actions of a person, an agent and a clock, most of them possible in the current state.
#pragma once

#include <cstdint>
#include <random>

#include "proofs/engine/call.hpp"

namespace quillmere::test {

/// Random calls, the same on every machine. Blocks given as arguments have no sessions: nobody edits a block
/// from outside.
class RandomCalls {
public:
    explicit RandomCalls(std::uint32_t seed) : generator_(seed) {}

    /// Moves the clock, sometimes backwards, and draws a call for the current state.
    Call next(const QuillmereState& state);

    /// The clock of the last call.
    Instant now() const { return now_; }

    bool oneIn(std::uint32_t count) { return below(count) == 0; }

private:
    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(generator_() % limit); }
    template <class Row, std::size_t count>
    const Row& oneOf(const std::array<Row, count>& rows)
    {
        return rows[below(count)];
    }

    void moveTheClock();
    Operation operation(WorkflowState workflowState);
    double duration();
    SessionPlan plan();
    std::optional<SessionPlan> maybePlan();
    Block block(const QuillmereState& state);
    Identifier question(const QuillmereState& state);

    std::mt19937 generator_;
    Instant now_{0};
};

}  // namespace quillmere::test
