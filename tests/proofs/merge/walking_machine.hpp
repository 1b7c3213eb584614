// A machine on which somebody works at random, by the engine and a clock of its own.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace quillmere::test {

/// Draws what all machines of a walk share, so that a walk is the same on every run.
class WalkRandom {
public:
    std::uint32_t below(std::size_t limit) { return static_cast<std::uint32_t>(random_() % limit); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    Identifier identifier();

private:
    std::mt19937 random_{20'261'123};
};

class WalkingMachine {
public:
    WalkingMachine(QuillmereState state, double clockOffset)
        : state_(std::move(state)), clockOffset_(clockOffset)
    {
    }

    /// Makes one operation that the engine must accept. `now` moves on by a second at least between the
    /// operations of all machines: a file has whole seconds.
    void act(WalkRandom& random, Instant now);

    /// Goes on from another state, as after a merge.
    void take(QuillmereState state);

    const QuillmereState& state() const { return state_; }
    /// The states that this one came of.
    const std::vector<QuillmereState>& past() const { return past_; }

private:
    QuillmereState state_;
    double clockOffset_;  ///< seconds
    std::vector<QuillmereState> past_;
};

}  // namespace quillmere::test
