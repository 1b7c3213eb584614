#include "workspace/forgetting.hpp"

#include "base/refusal.hpp"

#include <quillmere/records/json/coding_error.hpp>

#include <algorithm>
#include <system_error>
#include <unordered_set>

namespace quillmere::workspace {
namespace {

/// Absent when the file was deleted or cannot be read; `isUnreadable` then tells which.
std::optional<QuillmereState> readableState(const Version& version, bool& isUnreadable)
{
    try {
        return stateOf(version);
    } catch (const CodingError&) {
    } catch (const base::Refusal&) {
    } catch (const std::system_error&) {
    }
    isUnreadable = true;
    return std::nullopt;
}

void forgetIn(const Version& version, const Identifier& block, const Versions& versions, Forgotten& result)
{
    bool isUnreadable = false;
    std::optional<QuillmereState> state = readableState(version, isUnreadable);
    if (isUnreadable) {
        result.unreadable.push_back(version.number);
    }
    if (!state) {
        return;
    }
    if (state->currentBlock && state->currentBlock->id == block) {
        versions.remove(version);
        ++result.deleted;
    } else if (std::erase_if(state->blockHistory, [&](const Block& each) { return each.id == block; }) > 0) {
        versions.rewrite(version, *state);
        ++result.rewritten;
    }
}

}  // namespace

Forgotten forget(const Identifier& block, const Versions& versions)
{
    Forgotten result;
    for (const Version& version : versions.list()) {
        forgetIn(version, block, versions, result);
    }
    return result;
}

std::vector<Identifier> blocksInVersions(const Versions& versions)
{
    std::vector<Identifier> blocks;
    std::unordered_set<Identifier> known;
    const auto add = [&](const Block& block) {
        if (known.insert(block.id).second) {
            blocks.push_back(block.id);
        }
    };
    for (const Version& version : versions.list()) {
        bool isUnreadable = false;
        const std::optional<QuillmereState> state = readableState(version, isUnreadable);
        if (state && state->currentBlock) {
            add(*state->currentBlock);
        }
        for (const Block& block : state ? state->blockHistory : std::vector<Block>()) {
            add(block);
        }
    }
    return blocks;
}

}  // namespace quillmere::workspace
