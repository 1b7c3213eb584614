// The engine and the second statement of its rules, asked the same.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <unordered_set>

#include "proofs/engine/call.hpp"
#include "proofs/engine/rules.hpp"

namespace quillmere::test {

/// Equal in every field, where a length of time or an instant that is not a number equals another such.
bool isSame(const QuillmereState& left, const QuillmereState& right);

/// What came of the calls of one operation.
struct Tally {
    std::uint64_t acted;
    std::uint64_t reportedNothing;
    std::array<std::uint64_t, 6> refused;  ///< by case
    std::uint64_t fatal;                   ///< not made
};

class SecondOpinion {
public:
    /// Makes `call` and fails the test unless error, report and the whole state are what the rules say.
    /// A call that must stop the program is counted and not made: absent then.
    std::optional<Answer> check(QuillmereState& state, const Call& call);

    const Tally& of(Operation operation) const { return tallies_[placeOf(operation)]; }

    std::uint64_t compared() const { return compared_; }
    std::uint64_t fatal() const;
    std::uint64_t refused(WorkflowError::Case reason) const;

private:
    void takeOverIdentifier(Ruling& ruling, const QuillmereState& state);
    void count(Operation operation, const Answer& answer);

    std::array<Tally, operationCount> tallies_{};
    std::uint64_t compared_ = 0;
    std::unordered_set<Identifier> drawn_;
};

}  // namespace quillmere::test
