// What must not be lost when copies are merged, however often and in whichever order.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillmere::test {

/// The content of a state, without what depends on which work goes on: a session that one order of merges
/// leaves running is ended by another.
struct Content {
    struct OfBlock {
        std::optional<Instant> completedAt;
        std::optional<BlockReview> reflection;
        std::map<Identifier, std::optional<SessionReview>> reviews;  ///< of all sessions

        friend bool operator==(const OfBlock&, const OfBlock&) = default;
    };

    std::map<Identifier, OfBlock> blocks;  ///< that have sessions or are finished
    std::map<Identifier, AgentQuestion> questions;

    static Content of(const QuillmereState& state);

    friend bool operator==(const Content&, const Content&) = default;
};

/// Names the first ended session, review, reflection, question or answer that `from` has and `merged` has
/// not; empty when there is none.
std::string lostFrom(const QuillmereState& from, const QuillmereState& merged);

/// The block of a state with an identifier, current or in its history; null when there is none.
const Block* blockIn(const QuillmereState& state, const Identifier& id);

}  // namespace quillmere::test
