// Runs work in a child process as an ordinary user, with a time limit.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace quillmere::test {

struct ChildResult {
    std::string result;  ///< the returned text, "exit N", or the name of the signal that ended the child
    std::string errors;  ///< the child's standard error
    std::size_t memory;  ///< the child's peak memory in bytes
};

/// Runs `work` in a child process. SIGALRM ends the child after `seconds`, which shows that it blocks
/// forever.
ChildResult resultOfChild(const std::function<std::string()>& work, unsigned seconds);

/// Makes this process permanently one of an ordinary user, unless it is one already. Returns false where the
/// system does not allow the change.
bool becomeOrdinaryUser();

/// A temporary directory of an ordinary user, below directories that this user may enter. The superuser's
/// temporary directory may be closed to others.
class WritableDirectory {
public:
    WritableDirectory();
    WritableDirectory(const WritableDirectory&) = delete;
    WritableDirectory& operator=(const WritableDirectory&) = delete;
    ~WritableDirectory();

    /// Empty if no such directory was found.
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace quillmere::test
