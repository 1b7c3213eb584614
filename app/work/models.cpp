#include "work/models.hpp"

#include "base/reach.hpp"

#include "base/text/duration.hpp"
#include "config/new_block.hpp"
#include "work/recall/block_account.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillmere::work {
namespace {

constexpr std::size_t mostBlocks = 5;

std::string lengthsOf(const Block& block)
{
    return std::to_string(block.cycleCount) + " × " + base::durationText(block.focusDurationSeconds);
}

std::string outcomesOf(const Block& block)
{
    std::string titles;
    for (const Outcome& outcome : block.outcomes) {
        titles += (titles.empty() || outcome.title.empty() ? "" : "; ") + outcome.title;
    }
    return titles.empty() ? "a block without a named outcome" : titles;
}

}  // namespace

std::vector<Model> modelsFor(const QuillmereState& state, const config::Values& values,
                             const base::SeenFrom& here)
{
    std::vector<Model> models;
    const std::size_t blocks = std::min(state.blockHistory.size(), mostBlocks);
    for (std::size_t index = 0; index < blocks; ++index) {
        const Block& block = state.blockHistory[index];
        const Instant finished = base::finishedAt(block);
        models.push_back({.name = outcomesOf(block),
                          .note = base::localTextSeenFrom(here, finished) + ", " + lengthsOf(block),
                          .block = block});
    }
    for (const config::Template& fields : values.templates) {
        Block block = config::newBlock(values, fields, here.now);
        models.push_back(
            {.name = fields.name, .note = "a template, " + lengthsOf(block), .block = std::move(block)});
    }
    return models;
}

}  // namespace quillmere::work
