#include "screen/pages/history_list.hpp"

#include "base/reach.hpp"
#include "base/text/local_time.hpp"
#include "work/naming.hpp"
#include "work/recall/block_account.hpp"
#include "work/recall/search.hpp"
#include "work/recall/session_signs.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::screen {
namespace {

HistoryRow rowFor(const Block& block, std::string day, std::string name)
{
    const std::vector<work::Fact> titles = work::titlesOf(block);
    return {.block = block.id,
            .day = std::move(day),
            .name = std::move(name),
            .signs = work::signsOf(block),
            .title = titles.empty() ? "no named outcome" : titles.front().text};
}

}  // namespace

void HistoryList::update(const workspace::Situation& situation, const std::string& word)
{
    const QuillmereState& state = situation.state;
    Listed listed{state.updatedAt, state.blockHistory.size(), state.currentBlock.has_value(), word};
    if (listed_ == listed) {
        return;
    }
    listed_ = std::move(listed);
    rows_.clear();
    const work::SearchedText searched(word);
    if (const std::optional<Block>& current = state.currentBlock;
        current && searched.occursIn(*current, situation.now)) {
        rows_.push_back(rowFor(*current, "at hand", work::shortName(current->id, state)));
    }
    const std::vector<std::string> names = work::shortNames(state);
    for (std::size_t index = 0; index < state.blockHistory.size(); ++index) {
        const Block& block = state.blockHistory[index];
        if (searched.occursIn(block, situation.now)) {
            rows_.push_back(rowFor(block, base::localDayText(base::finishedAt(block)), names[index]));
        }
    }
}

std::optional<std::size_t> HistoryList::indexOf(const Identifier& block) const
{
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const HistoryRow& row) { return row.block == block; });
    return found == rows_.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - rows_.begin()));
}

}  // namespace quillmere::screen
