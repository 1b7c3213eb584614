#include "merge/questions.hpp"

#include "merge/comparison.hpp"
#include "merge/united.hpp"

namespace quillmere::merge {
namespace {

const AgentQuestion& joinedQuestion(const AgentQuestion& one, const AgentQuestion& other)
{
    std::strong_ordering order = compare(one.answeredAt, other.answeredAt);
    if (!isDecided(order)) {
        order = compareBytes(one, other);
    }
    return order < 0 ? other : one;
}

bool isAskedBefore(const AgentQuestion& one, const AgentQuestion& other)
{
    const std::strong_ordering order = compare(one.createdAt, other.createdAt);
    return isDecided(order) ? order < 0 : one.id < other.id;
}

}  // namespace

std::vector<AgentQuestion> mergedQuestions(const std::vector<AgentQuestion>& a,
                                           const std::vector<AgentQuestion>& b)
{
    return united(pointersTo(a), pointersTo(b), joinedQuestion, isAskedBefore);
}

}  // namespace quillmere::merge
