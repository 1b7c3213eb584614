// Short names of blocks and sessions, as a person types them.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {

/// The first characters of the block's identifier: at least four, and as many as it takes to tell it from
/// every other block of the state.
std::string shortName(const Identifier& block, const QuillmereState& state);

/// The short names of the finished blocks, in the order of the history.
std::vector<std::string> shortNames(const QuillmereState& state);

/// The finished block, or the current one, with this identifier; null: none.
const Block* blockWith(const Identifier& id, const QuillmereState& state);

/// The finished block with this identifier; null: none.
const Block* finishedBlockWith(const Identifier& id, const QuillmereState& state);

/// Whether a finished block, or the current one, has this name.
bool isBlockNamed(std::string_view name, const QuillmereState& state);

/// The block with this name: the first characters of its identifier in either case, at least four. Looks
/// among the finished blocks and the current one. Throws base::Refusal (`invalidRequest`) for a name that is
/// too short, that no block has, and that several blocks have; these are then named.
const Block& blockNamed(std::string_view name, const QuillmereState& state);

/// A block, or a session of one.
struct Named {
    const Block& block;
    const WorkSession* session;  ///< null: the block itself
};

/// "9F1C" names a block, "9F1C.2" its second session, ".2" the second session of the current block. Throws
/// as `blockNamed` does, and for a session that the block does not have.
Named named(std::string_view name, const QuillmereState& state);

}  // namespace quillmere::work
