#include "proofs/power_cut/violations.hpp"

namespace quillmere::test {

bool isOldOrNew(const FoundFile& file, const CutMoment& cut, bool hasEarlier)
{
    if (file.finding == Finding::nothing) {
        return !hasEarlier && cut.completed == 0;
    }
    const bool isBegun = hasEarlier || file.number > 0;
    return file.finding == Finding::version && isBegun && file.number >= cut.completed &&
           file.number <= cut.begun;
}

bool isSavedOnceOrRefused(const FoundFile& file, const CutMoment& cut, bool hasEarlier)
{
    switch (file.finding) {
        case Finding::nothing: return !hasEarlier;
        case Finding::version: return (hasEarlier || file.number > 0) && file.number <= cut.begun;
        case Finding::refused: return cut.begun > 0;
        case Finding::foreign: return false;
    }
    return false;
}

bool isNotNewer(const FoundFile& summary, const FoundFile& source)
{
    return summary.finding == Finding::nothing ||
           (summary.finding == Finding::version && source.finding == Finding::version &&
            summary.number <= source.number);
}

bool isStateOldOrNew(const Found& found, const CutMoment& cut, bool hasEarlier)
{
    return isOldOrNew(found.state, cut, hasEarlier);
}

}  // namespace quillmere::test
