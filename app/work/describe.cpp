#include "work/describe.hpp"

#include "work/changes/change_text.hpp"

namespace quillmere::work {
namespace {

/// The sentences of the changes that left something behind.
std::vector<std::string> gains(const Changes& changes, Instant now)
{
    std::vector<std::string> sentences;
    for (const Change& change : changes) {
        if (leavesSomething(change.kind)) {
            sentences.push_back(changeText(change, now));
        }
    }
    return sentences;
}

}  // namespace

std::vector<std::string> describe(const QuillmereState& before, const QuillmereState& after)
{
    std::vector<std::string> sentences;
    for (const Change& change : changesBetween(before, after)) {
        sentences.push_back(changeText(change, after.updatedAt));
    }
    return sentences;
}

WayBack describeWayBack(const QuillmereState& earlier, const QuillmereState& present, Instant now)
{
    const Changes since = changesBetween(earlier, present);
    WayBack way{.wouldGo = gains(since, now), .wouldComeBack = gains(changesBetween(present, earlier), now)};
    const bool isSilent = way.wouldGo.empty() && way.wouldComeBack.empty();
    if (isSilent && !since.empty() && since.front().kind != ChangeKind::savedAgain) {
        way.wouldGo.push_back(changeText(since.front(), now));
    }
    return way;
}

}  // namespace quillmere::work
