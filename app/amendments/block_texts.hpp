// The texts and outcomes of a block as an amendment changes them.
#pragma once

#include <quillmere/records/block.hpp>

#include <optional>
#include <string>
#include <vector>

namespace quillmere::amendments {

/// A text that is absent stays as it is.
struct BlockTexts {
    std::optional<std::string> whyValue = {};
    std::optional<std::string> doneTest = {};
    std::optional<std::string> hazards = {};
    std::optional<std::string> measurableCheck = {};
    std::optional<std::string> contextNotes = {};
    /// All outcomes in their new order. One whose title changes keeps its identifier; a new one has its own.
    std::optional<std::vector<Outcome>> outcomes = {};
};

/// Throws Refusal when the outcomes are empty, when two have the same identifier, and when an outcome is
/// missing that a session of the block or `nextPlan` serves.
void requireOutcomes(const BlockTexts& texts, const Block& block, const std::optional<SessionPlan>& nextPlan);

/// Sets the texts that are given.
void setTexts(Block& block, BlockTexts texts) noexcept;

}  // namespace quillmere::amendments
