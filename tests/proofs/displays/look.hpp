// A look at the work: a state as it was saved, and the instant at which displays show it.
#pragma once

#include "work/summarized_work.hpp"
#include "workspace/situation.hpp"

#include <random>

#include "proofs/steering/random_person.hpp"

namespace quillmere::test {

struct Look {
    QuillmereState saved;
    Instant savedAt;  ///< of the widget's summary
    Instant now;      ///< by a clock that may have been set since

    /// The saved state, brought up to the present as every program does that reads it.
    workspace::Situation situation() const;
    /// The two summaries as they were saved, in the form in which files keep them.
    WidgetSnapshot widget() const;
    AgentSnapshot agent() const;
};

/// Random looks at the work of a random person.
class RandomLooks {
public:
    Look next();

private:
    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }
    bool oneIn(std::uint32_t count) { return below(count) == 0; }

    /// Lengths and pauses that are no whole seconds, as a file may have them.
    void addFractions(QuillmereState& state);
    /// Soon after the saving, at the end of something, or at any other time after or before.
    Instant anyTime(const Look& look);

    RandomPerson person_;
    std::mt19937 random_{14'551'525};
};

}  // namespace quillmere::test
