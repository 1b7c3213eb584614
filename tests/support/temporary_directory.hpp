// A temporary directory for one test.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmere::test {

/// Created empty, and removed with its content by the destructor.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory();

    const std::filesystem::path& path() const { return path_; }

    /// The sorted names of all entries, including hidden ones.
    std::vector<std::string> names() const;

private:
    std::filesystem::path path_;
};

/// The sorted names in a directory; empty if it is missing.
std::vector<std::string> namesIn(const std::filesystem::path& directory);

/// The bytes of a file; fails the test when it cannot be read.
std::string textOf(const std::filesystem::path& file);

/// Writes a file in the ordinary way, without the library.
void writeText(const std::filesystem::path& file, const std::string& text);

}  // namespace quillmere::test
