// Compares the engine with the reference model of its rules.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <unordered_set>

#include "proofs/engine/call.hpp"
#include "proofs/engine/rules.hpp"

namespace quillmere::test {

/// Equality of all fields, where NaN equals NaN.
bool isSame(const QuillmereState& left, const QuillmereState& right);

/// Counts of the results of one operation.
struct Tally {
    std::uint64_t acted;
    std::uint64_t reportedNothing;
    std::array<std::uint64_t, 6> refused;  ///< by case
    std::uint64_t fatal;                   ///< calls not made, because they must stop the program
};

class Oracle {
public:
    /// Makes `call` and fails the test unless error, report and state are as the reference model says. A call
    /// that must stop the program is counted and not made; the result is absent then.
    std::optional<Answer> check(QuillmereState& state, const Call& call);

    const Tally& of(Operation operation) const { return tallies_[placeOf(operation)]; }

    std::uint64_t compared() const { return compared_; }
    std::uint64_t fatal() const;
    std::uint64_t refused(WorkflowError::Case reason) const;

private:
    void takeOverIdentifier(ExpectedOutcome& expected, const QuillmereState& state);
    void count(Operation operation, const Answer& answer);

    std::array<Tally, operationCount> tallies_{};
    std::uint64_t compared_ = 0;
    std::unordered_set<Identifier> drawn_;
};

}  // namespace quillmere::test
