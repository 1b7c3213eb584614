// A snapshot of a tree of files, and the changes between two snapshots.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quillmere::test {

/// One entry, with everything that shows a modification or a replacement. Size and time of a directory are
/// left out, because its entries show the same changes.
struct Entry {
    std::string facts;  ///< kind, inode, owner, mode; size, time and content unless it is a directory
    mode_t mode;

    friend bool operator==(const Entry&, const Entry&) = default;
};

/// By path relative to the root; the root is ".".
using Listing = std::map<std::string, Entry>;

/// All entries of a tree. Temporarily changes modes that prevent reading, and restores them.
Listing listingOf(const std::filesystem::path& root);

/// A created, removed or changed entry.
struct Change {
    std::string path;
    bool isGone;
    mode_t mode;  ///< the current mode; 0 when removed

    friend bool operator==(const Change&, const Change&) = default;
};

/// Sorted by path.
std::vector<Change> changesBetween(const Listing& before, const Listing& after);

/// Removes a tree, whatever modes its directories have.
void removeTree(const std::filesystem::path& root);

}  // namespace quillmere::test
