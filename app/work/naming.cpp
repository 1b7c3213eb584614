#include "work/naming.hpp"

#include "base/refusal.hpp"
#include "base/text/count.hpp"
#include "base/text/quotes.hpp"
#include "work/short_names.hpp"

#include <algorithm>
#include <charconv>
#include <vector>

namespace quillmere::work {
namespace {

base::Refusal refusal(const std::string& message) { return {base::Refusal::Kind::invalidRequest, message}; }

/// The finished blocks and the current one.
std::vector<const Block*> blocksOf(const QuillmereState& state)
{
    std::vector<const Block*> blocks;
    if (state.currentBlock) {
        blocks.push_back(&*state.currentBlock);
    }
    for (const Block& block : state.blockHistory) {
        blocks.push_back(&block);
    }
    return blocks;
}

std::vector<Identifier> identifiersOf(const QuillmereState& state)
{
    std::vector<Identifier> identifiers;
    for (const Block* const block : blocksOf(state)) {
        identifiers.push_back(block->id);
    }
    return identifiers;
}

base::Refusal severalBlocks(std::string_view name, const std::vector<const Block*>& found,
                            const QuillmereState& state)
{
    std::string names;
    for (const Block* const block : found) {
        names += (names.empty() ? "" : ", ") + shortName(block->id, state);
    }
    return refusal("Several blocks begin with " + base::inQuotes(name) + ": " + names +
                   ". Name one of them.");
}

const Block& currentBlock(const QuillmereState& state)
{
    if (!state.currentBlock) {
        throw refusal("There is no block at hand. quillmere history prints the names of finished blocks.");
    }
    return *state.currentBlock;
}

const WorkSession& sessionNumbered(std::string_view digits, const Block& block)
{
    std::size_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end || number < 1 || number > block.sessions.size()) {
        throw refusal("The block has no session " + base::inQuotes(digits) + "; it has " +
                      base::countText(std::ssize(block.sessions), "session") + ".");
    }
    return block.sessions[number - 1];
}

}  // namespace

std::string shortName(const Identifier& block, const QuillmereState& state)
{
    return ShortNames(identifiersOf(state)).of(block);
}

std::vector<std::string> shortNames(const QuillmereState& state)
{
    const ShortNames names(identifiersOf(state));
    std::vector<std::string> ofHistory;
    for (const Block& block : state.blockHistory) {
        ofHistory.push_back(names.of(block.id));
    }
    return ofHistory;
}

const Block* finishedBlockWith(const Identifier& id, const QuillmereState& state)
{
    const std::vector<Block>& history = state.blockHistory;
    const auto found =
        std::find_if(history.begin(), history.end(), [&](const Block& block) { return block.id == id; });
    return found == history.end() ? nullptr : &*found;
}

const Block* blockWith(const Identifier& id, const QuillmereState& state)
{
    const bool isCurrent = state.currentBlock && state.currentBlock->id == id;
    return isCurrent ? &*state.currentBlock : finishedBlockWith(id, state);
}

bool isBlockNamed(std::string_view name, const QuillmereState& state)
{
    const std::vector<const Block*> blocks = blocksOf(state);
    return std::any_of(blocks.begin(), blocks.end(),
                       [&](const Block* block) { return isNamed(block->id, name); });
}

const Block& blockNamed(std::string_view name, const QuillmereState& state)
{
    if (name.size() < shortestName) {
        throw refusal(base::inQuotes(name) +
                      " is too short for the name of a block: give at least four characters, "
                      "as quillmere history prints them.");
    }
    std::vector<const Block*> found = blocksOf(state);
    std::erase_if(found, [&](const Block* block) { return !isNamed(block->id, name); });
    if (found.empty()) {
        throw refusal("No block is called " + base::inQuotes(name) + "; see quillmere history.");
    }
    if (found.size() > 1) {
        throw severalBlocks(name, found, state);
    }
    return *found.front();
}

Named named(std::string_view name, const QuillmereState& state)
{
    const std::size_t point = name.find('.');
    const std::string_view ofBlock = name.substr(0, point);
    const Block& block = point == 0 ? currentBlock(state) : blockNamed(ofBlock, state);
    if (point == std::string_view::npos) {
        return {block, nullptr};
    }
    return {block, &sessionNumbered(name.substr(point + 1), block)};
}

}  // namespace quillmere::work
