// What a person wrote, told again: passages of facts, which every surface shows in its own way.
#pragma once

#include <quillmere/records/session_review.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::work {

/// Neither part is sanitized; the text may have several lines.
struct Fact {
    std::string label;  ///< may be empty
    std::string text;
    /// Of the session whose sign the label begins with.
    std::optional<CompletionResult> completion = {};

    friend bool operator==(const Fact&, const Fact&) = default;
};

struct Passage {
    /// Not sanitized: in a focus session, what the person wants from it. Empty where the facts need none.
    std::string heading;
    std::vector<Fact> facts;

    friend bool operator==(const Passage&, const Passage&) = default;
};

using Recall = std::vector<Passage>;

/// The columns of the widest label; 0 when no fact has a label.
std::size_t labelColumns(const Recall& recall);

/// Adds a passage, unless it has no facts.
inline void addPassage(Recall& recall, std::string heading, std::vector<Fact> facts)
{
    if (!facts.empty()) {
        recall.push_back({std::move(heading), std::move(facts)});
    }
}

}  // namespace quillmere::work
