// What has been done about which event.
#pragma once

#include "base/system/line_writer.hpp"
#include "notices/error_throttle.hpp"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace quillmere::notices {

/// One empty file a record, made exclusively (open(2), O_EXCL): of all programs that make one, one has made
/// it. A notice has its record once it was given; a hook, just before it starts. Where files cannot be made,
/// which is said once, records hold in this process alone.
class DeliveryLog {
public:
    /// In `directory`, which is made when it is needed. Empty: there is no place for files.
    DeliveryLog(std::filesystem::path directory, base::LineWriter& messages);

    const std::filesystem::path& directory() const { return directory_; }

    /// Whether there is a record, whoever made it.
    bool has(const std::string& key) const;

    /// Whether there was one when this was made.
    bool hadAtFirst(const std::string& key) const { return first_.contains(key); }

    /// Makes a record: true once, for one of all who ask.
    bool make(const std::string& key);

    /// Takes a record back that was made here.
    void remove(const std::string& key);

    /// Removes what nobody will ask for again: records of forty days ago, by the clock of the file system.
    /// Those of `standing` events stay, however old.
    void removeOld(const std::vector<std::string>& standing) const;

private:
    std::filesystem::path directory_;
    ErrorThrottle trouble_;
    std::set<std::string> first_;
    std::set<std::string> own_;
};

}  // namespace quillmere::notices
