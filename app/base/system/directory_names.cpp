#include "base/system/directory_names.hpp"

#include <dirent.h>

#include <cerrno>
#include <memory>
#include <string_view>

namespace quillmere::base {
namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

/// The next entry; null at the end, and with `errno` set after a failure.
const dirent* next(DIR* directory)
{
    errno = 0;
    return ::readdir(directory);
}

}  // namespace

std::vector<std::string> namesInDirectory(const std::filesystem::path& directory, std::error_code& error)
{
    std::vector<std::string> names;
    error.clear();
    const std::unique_ptr<DIR, CloseDirectory> opened(::opendir(directory.c_str()));
    if (!opened) {
        error.assign(errno, std::generic_category());
        return names;
    }
    while (const dirent* const entry = next(opened.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            names.emplace_back(name);
        }
    }
    error.assign(errno, std::generic_category());
    return names;
}

std::vector<std::string> namesInDirectory(const std::filesystem::path& directory)
{
    std::error_code error;
    std::vector<std::string> names = namesInDirectory(directory, error);
    if (error) {
        throw std::filesystem::filesystem_error("cannot read the directory", directory, error);
    }
    return names;
}

}  // namespace quillmere::base
