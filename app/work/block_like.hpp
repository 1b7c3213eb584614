// A block after the model of another.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string_view>

namespace quillmere::work {

/// The block that a person names as a model: "last" is the block that was finished last; any other name as in
/// `blockNamed`. Throws base::Refusal (`invalidRequest`) without such a block.
const Block& modelNamed(std::string_view name, const QuillmereState& state);

/// The block with the texts, lengths and number of sessions of the model, and with outcomes of the same
/// titles that have identifiers of their own. Its planned start and everything else stay as they are.
Block withPlanOf(const Block& model, Block block);

}  // namespace quillmere::work
