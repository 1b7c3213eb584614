// What can be told from outside of a tree of files.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quillmere::test {

/// One entry: everything that shows that it was touched or put in another's place. A directory's size and
/// time are left out, for its entries tell the same.
struct Entry {
    std::string facts;  ///< kind, inode, owner, mode, and for all but directories size, time and content
    mode_t mode;

    friend bool operator==(const Entry&, const Entry&) = default;
};

/// By path relative to the root, which is ".".
using Listing = std::map<std::string, Entry>;

/// All that is in a tree. What its modes keep from being looked at is opened for the look and closed again
/// as it was.
Listing listingOf(const std::filesystem::path& root);

/// An entry that appeared, went away or became another.
struct Change {
    std::string path;
    bool isGone;
    mode_t mode;  ///< as it is now; 0 when gone

    friend bool operator==(const Change&, const Change&) = default;
};

/// Sorted by path.
std::vector<Change> changesBetween(const Listing& before, const Listing& after);

/// Removes a tree, whatever modes its directories have.
void removeTree(const std::filesystem::path& root);

}  // namespace quillmere::test
