// Earlier versions of the state, so that nothing is lost by a change either.
#pragma once

#include <quillmere/records/instant.hpp>

#include <cstdint>
#include <filesystem>
#include <utility>
#include <vector>

namespace quillmere::workspace {

/// A file with the state as it once was.
struct Version {
    std::int64_t number;  ///< counts up, with every change; at most 10^12
    Instant savedAt;      ///< when the state had last been changed
    std::filesystem::path file;
};

/// The versions of one state file: the last ten, and of each of the thirty newest local days that have any
/// the one that was saved last; at most forty. No clock is asked, so that one that was wrong for a while
/// costs one of the days. A file each, "000123_2026-11-15T15:00:00Z.json", in a directory of their own. Not
/// safe against others that keep versions at the same time: for holders of the lock.
class Versions {
public:
    /// An empty path keeps nothing and has nothing.
    explicit Versions(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// All there are, from the highest number. What has no such name is none, nor is anything but a file.
    std::vector<Version> list() const;

    /// Keeps the file as it is now, if there is one, and lets go of versions that have had their time, where
    /// they can be removed. Durable, and whole or not at all; throws `std::system_error` when it cannot,
    /// with the versions before it left in place.
    void keep(const std::filesystem::path& stateFile, Instant savedAt) const;

private:
    void prune() const;

    std::filesystem::path directory_;
};

}  // namespace quillmere::workspace
