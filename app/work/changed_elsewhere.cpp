#include "work/changed_elsewhere.hpp"

#include "base/reach.hpp"
#include "work/describe.hpp"

#include <algorithm>
#include <vector>

namespace quillmere::work {
namespace {

template <class Record>
bool isIn(const std::vector<Record>& records, const Record& wanted)
{
    return std::any_of(records.begin(), records.end(),
                       [&](const Record& each) { return each.id == wanted.id; });
}

/// Removes the oldest blocks that the other look does not have.
void removeOldestBeyond(std::vector<Block>& history, const std::vector<Block>& other)
{
    while (!history.empty() && !isIn(other, history.back())) {
        history.pop_back();
    }
}

/// Leaves of both what is within the reach of both.
void keepCommonReach(QuillmereState& before, QuillmereState& after, Instant now)
{
    constexpr base::Reach reach = base::Reach::prompts;
    base::keepWithin(reach, before, now);
    base::keepWithin(reach, after, now);
    std::erase_if(before.agentQuestions,
                  [&](const AgentQuestion& question) { return !isIn(after.agentQuestions, question); });
    if (base::areAllWithin(reach, before.blockHistory, now) ||
        base::areAllWithin(reach, after.blockHistory, now)) {
        const std::vector<Block> all = before.blockHistory;
        removeOldestBeyond(before.blockHistory, after.blockHistory);
        removeOldestBeyond(after.blockHistory, all);
    }
}

}  // namespace

std::string changedElsewhere(QuillmereState before, QuillmereState after, const base::SeenFrom& here)
{
    keepCommonReach(before, after, here.now);
    return "Changed elsewhere: " + describeInASentence(before, after, here);
}

}  // namespace quillmere::work
