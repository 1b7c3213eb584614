// A person, an agent and a clock, all of them erratic.
#pragma once

#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace quillmere::test {

/// Random numbers that are the same on every machine, which the distributions of the standard library
/// are not.
class Chance {
public:
    explicit Chance(std::uint32_t seed) : generator_(seed) {}

    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(generator_() % limit); }
    bool oneIn(std::uint32_t count) { return below(count) == 0; }

private:
    std::mt19937 generator_;
};

/// What came of one step.
struct Attempt {
    std::string_view operation;
    std::optional<WorkflowError::Case> refusal;
    bool didSomething;  ///< neither refused nor reported as nothing to do
};

/// Operations on one state, drawn at random with arguments that are often wrong, on a clock that is
/// sometimes set back.
class RandomWalk {
public:
    /// All instants and many durations are multiples of `tick` seconds.
    RandomWalk(std::uint32_t seed, double tick);

    /// Moves the clock and tries one operation.
    Attempt step();

    const QuillmereState& state() const { return state_; }
    Instant now() const { return now_; }

private:
    struct Operation;

    void moveTheClock();
    Identifier freshIdentifier();
    double seconds(std::uint32_t limit) { return chance_.below(limit) * tick_; }
    double duration();
    std::int64_t rating();
    SessionPlan plan();
    std::optional<SessionPlan> maybePlan();
    Block block();
    std::string text();
    Identifier question();

    Chance chance_;
    double tick_;
    Instant now_;
    QuillmereState state_;
    unsigned identifiers_ = 1000;
};

}  // namespace quillmere::test
