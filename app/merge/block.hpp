// Two copies of a block as one.
#pragma once

#include <quillmere/records/block.hpp>

#include <optional>

namespace quillmere::merge {

/// A block as one side has it.
struct BlockCopy {
    const Block& block;
    Instant savedAt;  ///< the `updatedAt` of its side
};

/// What the merged state needs of a block that is under way.
struct WorkAhead {
    std::optional<Identifier> currentSession;  ///< that runs or is in review; it is the last one
    bool anotherSession = false;               ///< whether a session is to follow
};

/// The sessions of both, each once; the texts and numbers of the copy that was finished last or, when none
/// is, of the one in which something was begun last. Sessions that nobody goes on with are ended. There are
/// at least as many cycles as the sessions need.
///
/// The sessions keep the order of the side that has them all; otherwise they are in the order of number,
/// start and identifier. They are numbered anew.
Block joined(const BlockCopy& a, const BlockCopy& b, const WorkAhead& ahead);

/// A block that is no longer under way: its open sessions are ended.
Block leftBehind(const BlockCopy& copy);

}  // namespace quillmere::merge
