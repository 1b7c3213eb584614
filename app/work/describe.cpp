#include "work/describe.hpp"

#include "base/text/count.hpp"
#include "work/changes/change_text.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>

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

std::string describeInASentence(const QuillmereState& before, const QuillmereState& after,
                                const base::SeenFrom& here)
{
    constexpr std::ptrdiff_t mostNamed = 2;
    const Changes changes = changesBetween(before, after);
    const std::ptrdiff_t named = std::min(std::ssize(changes), mostNamed);
    std::string line;
    for (auto change = changes.begin(); change != changes.begin() + named; ++change) {
        line += (line.empty() ? "" : "; ") + changeText(*change, here);
    }
    if (named < std::ssize(changes)) {
        line += "; " + base::moreText(std::ssize(changes) - named);
    }
    const bool isEnded = line.ends_with('.') || line.ends_with('?') || line.ends_with('!');
    return line + (isEnded ? "" : ".");
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
