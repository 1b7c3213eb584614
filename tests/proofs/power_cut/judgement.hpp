// What may be found after the power was cut.
#pragma once

#include "proofs/power_cut/found_directories.hpp"

namespace quillmere::test {

struct Counts {
    std::size_t moments = 0;
    std::size_t directories = 0;
    std::size_t violations = 0;
};

/// Judges every directory that may be found at every moment of so many saves in a row, those of fewer being
/// the moments before.
template <class Holds>
Counts countViolations(Scope scope, std::size_t saveCount, const ReplaceItem& replaceItem, Holds holds)
{
    Counts counts;
    for (const bool hasEarlier : {false, true}) {
        FoundDirectories found;
        for (const CutMoment& cut : cutMoments({scope, hasEarlier, saveCount, replaceItem})) {
            ++counts.moments;
            for (const DirectoryImage& image : cut.images) {
                counts.violations += holds(found.look(image), cut, hasEarlier) ? 0 : 1;
            }
        }
        counts.directories += found.count();
    }
    return counts;
}

/// Whether a file is of the last version whose save had returned, or of one whose save had begun.
bool isOldOrNew(const FoundFile& file, const CutMoment& cut, bool hasEarlier);

/// Whether a file is of a version that was saved, now or earlier, or is refused. Where nothing lasted before,
/// nothing may be found.
bool isSavedOnceOrRefused(const FoundFile& file, const CutMoment& cut, bool hasEarlier);

/// Whether a summary is there only when that which it goes by is, and is not newer.
bool isNotNewer(const FoundFile& summary, const FoundFile& source);

/// The same of the state alone.
bool isStateOldOrNew(const Found& found, const CutMoment& cut, bool hasEarlier);

}  // namespace quillmere::test
