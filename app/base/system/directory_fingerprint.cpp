#include "base/system/directory_fingerprint.hpp"

#include "base/system/directory_names.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <sstream>
#include <system_error>

namespace quillmere::base {
namespace {

namespace fs = std::filesystem;

std::string lookOf(const fs::path& path, int (*look)(const char*, struct stat*))
{
    struct stat status {};
    std::ostringstream text;
    text << path.filename().string() << '/';
    if (look(path.c_str(), &status) == -1) {
        text << "error " << errno;
        return text.str();
    }
    text << status.st_dev << ' ' << status.st_ino << ' ' << status.st_mode;
    // Entries alone: the directory's own times change with those of its entries.
    if (!S_ISDIR(status.st_mode)) {
        text << ' ' << status.st_size << ' ' << status.st_mtim.tv_sec << '.' << status.st_mtim.tv_nsec << ' '
             << status.st_ctim.tv_sec << '.' << status.st_ctim.tv_nsec;
    }
    return text.str();
}

}  // namespace

DirectoryFingerprint fingerprintOf(const fs::path& directory)
{
    DirectoryFingerprint looks = {lookOf(directory, ::stat)};
    std::error_code error;
    for (const std::string& name : namesInDirectory(directory, error)) {
        looks.push_back(lookOf(directory / name, ::lstat));
    }
    looks.push_back("error " + std::to_string(error.value()));
    std::sort(looks.begin(), looks.end());
    return looks;
}

}  // namespace quillmere::base
