// The notices on the screen.
#pragma once

#include "notices/notice.hpp"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace quillmere::notices {

/// The number of each subject's last notice, with the service that counts them: a number means nothing to
/// another service, nor to the same one after it was started again. Kept in a file, so that whoever tells
/// next replaces the notices of whoever told before, and hears what is chosen on them.
class ShownNotices {
public:
    /// With what stands in `file`. Where it cannot be written, or the path is empty, nothing is kept: a
    /// notice then stays beside its successor.
    explicit ShownNotices(std::filesystem::path file);

    /// Reads the file again, and forgets all notices of another service than this.
    void read(const std::string& service);

    /// 0: there is none.
    std::uint32_t numberOf(NoticeSubject subject) const;
    bool has(std::uint32_t number) const;
    bool isEmpty() const { return numbers_.empty(); }

    void show(NoticeSubject subject, std::uint32_t number);
    void close(std::uint32_t number);

    /// Forgets all notices in memory.
    void forget() { numbers_.clear(); }

private:
    void load();
    void keep() const;

    std::filesystem::path file_;
    std::string service_;
    std::map<NoticeSubject, std::uint32_t> numbers_;
};

}  // namespace quillmere::notices
