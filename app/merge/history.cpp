#include "merge/history.hpp"

#include "merge/block.hpp"
#include "merge/comparison.hpp"
#include "merge/last_start.hpp"
#include "merge/united.hpp"

namespace quillmere::merge {
namespace {

std::vector<const Block*> blocksOf(const Past& past, const std::optional<Identifier>& underWay)
{
    std::vector<const Block*> blocks;
    blocks.reserve(past.side.blockHistory.size() + 1);
    if (past.left) {
        blocks.push_back(&*past.left);
    }
    for (const Block& block : past.side.blockHistory) {
        if (block.id != underWay) {
            blocks.push_back(&block);
        }
    }
    return blocks;
}

Instant endOf(const Block& block) { return block.completedAt ? *block.completedAt : lastStartIn(block); }

bool isNewer(const Block& one, const Block& other)
{
    const std::strong_ordering order = compare(endOf(one), endOf(other));
    return isDecided(order) ? order > 0 : one.id < other.id;
}

}  // namespace

std::vector<Block> mergedHistory(const Past& a, const Past& b, const std::optional<Identifier>& underWay)
{
    const auto join = [&](const Block& one, const Block& other) {
        return joined({one, a.side.updatedAt}, {other, b.side.updatedAt}, {});
    };
    return united(blocksOf(a, underWay), blocksOf(b, underWay), join, isNewer);
}

}  // namespace quillmere::merge
