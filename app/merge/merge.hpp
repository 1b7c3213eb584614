// Two copies of a person's work as one state. Nothing here reads a file or a clock.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <vector>

namespace quillmere::merge {

/// What a side sees of the result.
struct SideOfMerge {
    bool isWhole;    ///< the merged state equals this side: the other has nothing that it lacks
    bool onlyGains;  ///< finished blocks, questions and answers are added, nothing else changes
};

struct MergeResult {
    QuillmereState state;
    SideOfMerge a;
    SideOfMerge b;
    bool blocksCompeted;     ///< both had a live block, and not the same: a person should choose
    bool identifiersDiffer;  ///< of the two states, which then may not belong to the same work
    std::vector<Block>
        setAside;  ///< a block that gave way and is in `state` no longer, as it has no sessions
};

/// Blocks, sessions, questions and answers of both, and the work under way of one side. `updatedAt` is the
/// later, `id` the smaller. Both states are as files have them: every instant and duration is finite.
///
/// Laws, for states that come of the engine's operations alone:
/// - `merge(a, b)` and `merge(b, a)` have the same bytes; `merge(a, a)` is `a`; merging `a` or `b` into
///   `merge(a, b)` changes nothing.
/// - However three states are merged, the blocks with sessions, the sessions, reviews, reflections,
///   questions and answers are the same.
/// - No ended session, review, reflection, question or answer is lost. Of two reviews of one session, two
///   reflections on one block and two answers to one question one is kept, as a record has room for one.
/// - An older state, merged into one that came of it, changes nothing, as long as the clocks agree. Except
///   a block without sessions that the newer state has no more (a cancelled schedule, or one that gave way
///   in a merge): it comes back where nothing else is under way, as nothing in a state shows that it was
///   ever there.
///
/// docs/merging.md has the rules and all exceptions.
MergeResult merge(const QuillmereState& a, const QuillmereState& b);

}  // namespace quillmere::merge
