// A temporary directory for a measurement.
#pragma once

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

namespace quillmere::bench {

class TemporaryPlace {
public:
    /// In a directory that exists.
    explicit TemporaryPlace(const std::filesystem::path& parent)
    {
        std::string path = parent / "quillmere-bench-XXXXXX";
        if (!::mkdtemp(path.data())) {
            throw std::system_error(errno, std::generic_category(), "mkdtemp");
        }
        path_ = path;
    }
    TemporaryPlace(const TemporaryPlace&) = delete;
    TemporaryPlace& operator=(const TemporaryPlace&) = delete;
    ~TemporaryPlace() { std::filesystem::remove_all(path_); }

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace quillmere::bench
