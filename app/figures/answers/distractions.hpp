// What got in the way: the words of distractions, and whether they were foreseen.
#pragma once

#include "figures/look_back.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::figures {

/// A word, or a phrase between separators, that people wrote as a distraction. Differences of case and space
/// do not count.
struct Distraction {
    std::string text;           ///< folded: in lower case, with single spaces
    std::int64_t sessions = 0;  ///< that it is in, once each
    /// Of these, those in which the hazards of the block, or what the plan had against hazards, have it too.
    std::int64_t foreseen = 0;
};

struct Distractions {
    std::int64_t reviewedSessions = 0;
    std::int64_t disturbedSessions = 0;     ///< whose distractions have a word
    std::vector<Distraction> words = {};    ///< the most frequent first, of equal ones in the order of bytes
    std::vector<Distraction> phrases = {};  ///< of two words and more, likewise
};

Distractions distractionsOf(const LookBack& look);

/// The words of a text, folded: runs of letters and digits, apostrophes within them included. Any character
/// beyond ASCII is a letter.
std::vector<std::string> wordsIn(std::string_view text);

}  // namespace quillmere::figures
