#include "work/block_like.hpp"

#include "base/refusal.hpp"
#include "config/keys.hpp"
#include "work/fields/fields.hpp"
#include "work/naming.hpp"

#include <optional>
#include <variant>

namespace quillmere::work {

const Block& modelNamed(std::string_view name, const QuillmereState& state)
{
    if (name != config::lastBlockName) {
        return blockNamed(name, state);
    }
    if (state.blockHistory.empty()) {
        throw base::Refusal(base::Refusal::Kind::invalidRequest, "No block is finished yet.");
    }
    return state.blockHistory.front();
}

Block withPlanOf(const Block& model, Block block)
{
    for (const RecordField<Block>& row : blockFields) {
        if (!std::holds_alternative<std::optional<Instant> Block::*>(row.member)) {
            std::visit([&](const auto member) { block.*member = model.*member; }, row.member);
        }
    }
    for (Outcome& outcome : block.outcomes) {
        outcome.id = Identifier::random();
    }
    return block;
}

}  // namespace quillmere::work
