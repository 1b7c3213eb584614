// Random arguments of steps and amendments.
#pragma once

#include <quillmere/records/instant.hpp>

#include <cstddef>
#include <random>

#include "support/sample_states.hpp"

namespace quillmere::test {

class RandomValues {
public:
    unsigned below(std::size_t limit) { return static_cast<unsigned>(random_() % limit); }
    bool oneIn(std::size_t count) { return below(count) == 0; }

    /// Around `now`.
    Instant time(Instant now) { return now - static_cast<double>(below(400)) + 60; }

    /// Seconds, also below zero.
    double length() { return static_cast<double>(below(3'000)) - 600; }

    // Short texts: a large state makes the walk slow.

    /// With a rating that may be wrong.
    SessionPlan plan()
    {
        SessionPlan plan = SessionPlan::blank(identifier(below(9)));
        plan.intendedOutcome = "Page";
        plan.energy = 1 + below(6);
        return plan;
    }

    SessionReview review()
    {
        return {.id = identifier(below(9)),
                .completion = CompletionResult::half,
                .noteworthyResult = "Half a page",
                .distractions = {},
                .improvement = {}};
    }

private:
    std::mt19937 random_{20'261'122};
};

}  // namespace quillmere::test
