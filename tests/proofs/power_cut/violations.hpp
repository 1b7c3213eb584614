// The permitted file versions after a power cut.
#pragma once

#include "proofs/power_cut/found_directories.hpp"

namespace quillmere::test {

struct Counts {
    std::size_t moments = 0;
    std::size_t directories = 0;
    std::size_t violations = 0;
};

/// Counts the violations in every possible directory at every moment of `saveCount` successive saves. Moments
/// of fewer saves are included as earlier moments.
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

/// Whether a file is the last completely saved version, or a later one whose save had started.
bool isOldOrNew(const FoundFile& file, const CutMoment& cut, bool hasEarlier);

/// Whether a file is any version saved before, or cannot be decoded. If no earlier version was durable, the
/// file may also be missing.
bool isSavedOnceOrRefused(const FoundFile& file, const CutMoment& cut, bool hasEarlier);

/// Whether a summary is missing, or its source exists and is not older.
bool isNotNewer(const FoundFile& summary, const FoundFile& source);

/// isOldOrNew for the state alone.
bool isStateOldOrNew(const Found& found, const CutMoment& cut, bool hasEarlier);

}  // namespace quillmere::test
