// The notices that are on the screen.
#pragma once

#include "notices/notice.hpp"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace quillmere::notices {

/// The number of each subject's last notice, and the service that gave the numbers: they mean nothing to
/// another service, nor to the same one after a restart. Stored in a file, so that the next leader replaces
/// the notices of the one before it and handles the choices on them.
class ShownNotices {
public:
    /// Reads `file`. Where it cannot be written, or the path is empty, the numbers are in memory only: the
    /// next leader's notice then appears beside the earlier one.
    explicit ShownNotices(std::filesystem::path file);

    /// Reads the file again; forgets the notices of any service other than this one.
    void read(const std::string& service);

    /// 0: the subject has no notice.
    std::uint32_t numberOf(NoticeSubject subject) const;
    bool has(std::uint32_t number) const;
    bool isEmpty() const { return numbers_.empty(); }

    void show(NoticeSubject subject, std::uint32_t number);
    void close(std::uint32_t number);

    /// Forgets the notices in memory; the file stays.
    void forget() { numbers_.clear(); }

private:
    void load();
    void save() const;

    std::filesystem::path file_;
    std::string service_;
    std::map<NoticeSubject, std::uint32_t> numbers_;
};

}  // namespace quillmere::notices
