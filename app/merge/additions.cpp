#include "merge/additions.hpp"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace quillmere::merge {
namespace {

bool hasSameWork(const QuillmereState& merged, const QuillmereState& side)
{
    return merged.workflowState == side.workflowState && merged.currentBlock == side.currentBlock &&
           merged.plannedNextSession == side.plannedNextSession &&
           merged.breakStartedAt == side.breakStartedAt &&
           merged.breakExtensionSeconds == side.breakExtensionSeconds &&
           merged.breakEndNotifiedAt == side.breakEndNotifiedAt;
}

template <class Record>
std::unordered_map<Identifier, const Record*> byIdentifier(const std::vector<Record>& records)
{
    std::unordered_map<Identifier, const Record*> result;
    result.reserve(records.size());
    for (const Record& record : records) {
        result.emplace(record.id, &record);
    }
    return result;
}

bool hasOnlyNewFinishedBlocks(const QuillmereState& merged, const QuillmereState& side)
{
    const auto own = byIdentifier(side.blockHistory);
    return std::all_of(merged.blockHistory.begin(), merged.blockHistory.end(), [&](const Block& block) {
        const auto found = own.find(block.id);
        return found == own.end() ? block.completedAt.has_value() : *found->second == block;
    });
}

bool keepsAnswers(const QuillmereState& merged, const QuillmereState& side)
{
    const auto own = byIdentifier(side.agentQuestions);
    return std::all_of(merged.agentQuestions.begin(), merged.agentQuestions.end(),
                       [&](const AgentQuestion& question) {
                           const auto found = own.find(question.id);
                           return found == own.end() || found->second->isOpen() || *found->second == question;
                       });
}

}  // namespace

bool onlyAdds(const QuillmereState& merged, const QuillmereState& side)
{
    return hasSameWork(merged, side) && hasOnlyNewFinishedBlocks(merged, side) && keepsAnswers(merged, side);
}

}  // namespace quillmere::merge
