// Work done in a process of its own, by an ordinary user, within a limited time.
#pragma once

#include "support/temporary_directory.hpp"

#include <filesystem>
#include <functional>
#include <string>

namespace quillmere::test {

/// How a process of its own ended.
struct Apart {
    std::string said;    ///< what the work returned; without that "exit N", or the signal's name
    std::string errors;  ///< what was printed on standard error
    std::size_t memory;  ///< the most that it had in memory, in bytes
};

/// Does `work` in a copy of this process. A copy that has not ended after `seconds` ends with SIGALRM: what
/// waits for ever is found out. Standard error goes to `errors`, a file.
Apart apart(const std::function<std::string()>& work, unsigned seconds, const std::filesystem::path& errors);

/// Becomes an ordinary user, for good. Whoever is none of the superusers is one already. False where the
/// system does not let the superuser become anybody else.
bool becomeOrdinaryUser();

/// A directory that belongs to the ordinary user, in a place where that user can get to. Not every place
/// for temporary files is one: the superuser's own may be closed to all others.
class Ground {
public:
    Ground();
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;
    ~Ground();

    /// Empty where no such place was found.
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace quillmere::test
