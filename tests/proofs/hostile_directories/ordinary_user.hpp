// Work done in a child process by an ordinary user, within a limited time.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace quillmere::test {

struct ChildResult {
    std::string
        result;  ///< what the work returned; otherwise "exit N", or the name of the signal that ended it
    std::string errors;  ///< printed on standard error
    std::size_t memory;  ///< the most that the child had in memory, in bytes
};

/// Does `work` in a child process. A child that has not ended after `seconds` ends with SIGALRM, which shows
/// that it waits for ever.
ChildResult resultOfChild(const std::function<std::string()>& work, unsigned seconds);

/// Makes this process one of an ordinary user, for good; nothing happens when it is one already. False where
/// the system does not let the superuser change.
bool becomeOrdinaryUser();

/// A temporary directory of the ordinary user, below directories that this user may enter. The superuser's
/// own place for temporary files may be closed to all others.
class WritableDirectory {
public:
    WritableDirectory();
    WritableDirectory(const WritableDirectory&) = delete;
    WritableDirectory& operator=(const WritableDirectory&) = delete;
    ~WritableDirectory();

    /// Empty where no such place was found.
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace quillmere::test
