// Which notices were given, and which hooks were run.
#pragma once

#include "base/system/line_writer.hpp"
#include "notices/error_throttle.hpp"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace quillmere::notices {

/// One empty file per record, created exclusively (open(2), O_EXCL): of all processes that try, exactly one
/// creates it. A notice is recorded just before it is given, so that it is given at most once; a hook just
/// after its start, so that it is started at least once. Where no files can be created, records are kept in
/// this process alone; that is reported once.
class DeliveryLog {
public:
    /// `directory` is created when the first record is. Empty: records are kept in memory only.
    DeliveryLog(std::filesystem::path directory, base::LineWriter& messages);

    const std::filesystem::path& directory() const { return directory_; }

    /// Whether any process has made this record.
    bool has(const std::string& key) const;

    /// Whether the record existed when this object was constructed.
    bool hadAtStart(const std::string& key) const { return atStart_.contains(key); }

    /// Makes the record; false when it exists.
    bool record(const std::string& key);

    /// Removes a record that this object made.
    void remove(const std::string& key);

    /// Removes records older than forty days, by the clock of the system, but those of the `standing`
    /// events: they would be delivered again.
    void prune(const std::vector<std::string>& standing) const;

private:
    std::filesystem::path directory_;
    ErrorThrottle errors_;
    std::set<std::string> atStart_;
    std::set<std::string> own_;
};

}  // namespace quillmere::notices
