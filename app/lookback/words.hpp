// Figures of a look back in words, the same in a terminal and on a page.
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <vector>

namespace quillmere::lookback {

/// "412 h 30 min", "25 min", "less than 1 min", "none".
std::string focusText(double seconds);

/// "3.4"; "-" for none.
std::string meanText(const figures::Ratings& ratings);

/// "60 %"; "-" when there is nothing to be a part of.
std::string shareText(double part, double whole);

/// "1 day", "4 days".
std::string countText(std::int64_t count, const std::string& thing);

/// "2026-11-01 to 2026-11-21", "up to 2026-11-21": what the look back is about.
std::string rangeText(const figures::LookBack& look);

/// "9 yes, 3 half, 1 no".
std::string completionsText(const figures::Completions& completions);

/// "yes", as it stands within a sentence.
std::string completionText(CompletionResult completion);

/// What a session is called: what it was to bring about, or its number. A text of a person, as it is.
std::string nameOf(const WorkSession& session);

struct Fact {
    std::string name;
    std::string value;
};

/// The whole of it in a few lines.
std::vector<Fact> factsOf(const figures::LookBack& look);

/// The sentence of a look back on nothing.
std::string emptyText(const figures::LookBack& look);

}  // namespace quillmere::lookback
