// A real directory for one test.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmere::test {

/// Made empty, and removed with all that is in it at the end.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory();

    const std::filesystem::path& path() const { return path_; }

    /// The names of all entries, hidden ones included, sorted.
    std::vector<std::string> names() const;

private:
    std::filesystem::path path_;
};

/// The sorted names in any directory; none when it is missing.
std::vector<std::string> namesIn(const std::filesystem::path& directory);

/// The bytes of a file; fails the test when it cannot be read.
std::string textOf(const std::filesystem::path& file);

/// Writes a file as any other program would.
void writeText(const std::filesystem::path& file, const std::string& text);

}  // namespace quillmere::test
