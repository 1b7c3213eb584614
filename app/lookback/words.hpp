// The output of `quillmere report`: the figures as texts, in a terminal, on a page and in files. Its user
// sees a "look back". This header has the words that the terminal and the page share.
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <vector>

namespace quillmere::lookback {

/// "412 h 30 min", "25 min", "less than 1 min", "none".
std::string focusText(double seconds);

/// "3.4"; "-" for none.
std::string meanText(const figures::Ratings& ratings);

/// "60 %"; "-" when the whole is zero.
std::string shareText(double part, double whole);

/// How much was reached of what sessions were meant to: "83 %", where half counts as a half; "-" for none.
std::string reachedText(const figures::Completions& completions);

/// The days of a range: "2026-11-01 to 2026-11-21", "2026-11-21", or "up to 2026-11-21" without a first one.
/// It ends today unless it says otherwise.
std::string rangeText(const figures::Range& range, figures::Day today);
std::string rangeText(const figures::LookBack& look);

/// "9 yes, 3 half, 1 no".
std::string completionsText(const figures::Completions& completions);

/// "yes".
std::string completionText(CompletionResult completion);

/// The intended outcome of a session; without one the outcome of the block that it serves, or else the first
/// of the block; without any its number. Not sanitized.
std::string nameOf(const WorkSession& session, const Block& block);

/// The titles of the block's outcomes: "Outline; First section". Empty without any; not sanitized.
std::string titlesOf(const Block& block);

struct Fact {
    std::string name;
    std::string value;
};

/// A summary in a few lines.
std::vector<Fact> factsOf(const figures::LookBack& look);

/// How the shares and the best times of the answers are counted.
inline constexpr const char* countingText =
    "Of what was reached, half counts as a half. A best time has a twentieth of all sessions at the least.";

/// The sentence for a look back without any session.
std::string emptyText(const figures::LookBack& look);

}  // namespace quillmere::lookback
