#include "listing.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <string_view>

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

struct stat statusOf(const fs::path& path)
{
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        throw fs::filesystem_error("lstat", path, {errno, std::generic_category()});
    }
    return status;
}

/// Gives the owner access to an entry and restores its mode in the destructor.
class Opened {
public:
    Opened(const fs::path& path, mode_t mode) : path_(path), mode_(mode & 07777)
    {
        ::chmod(path_.c_str(), 0700);
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { ::chmod(path_.c_str(), mode_); }

private:
    const fs::path& path_;
    mode_t mode_;
};

/// The content of a file; only the beginning of a large one.
std::string contentOf(const fs::path& file)
{
    constexpr std::size_t most = 1 << 16;
    std::string content(most, '\0');
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    std::size_t size = 0;
    for (ssize_t count = 1; count > 0 && size < most; size += static_cast<std::size_t>(count)) {
        count = ::read(descriptor, content.data() + size, most - size);
        if (count == -1) {
            throw fs::filesystem_error("read", file, {errno, std::generic_category()});
        }
    }
    ::close(descriptor);
    content.resize(size);
    return content;
}

std::string factsOf(const fs::path& path, const struct stat& status)
{
    std::string facts = std::to_string(status.st_ino) + ' ' + std::to_string(status.st_uid) + ' ' +
                        std::to_string(status.st_mode);
    if (S_ISDIR(status.st_mode)) {
        return facts;
    }
    facts += ' ' + std::to_string(status.st_size) + ' ' + std::to_string(status.st_blocks) + ' ' +
             std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec);
    if (S_ISLNK(status.st_mode)) {
        return facts + " -> " + fs::read_symlink(path).string();
    }
    if (S_ISREG(status.st_mode)) {
        const bool readable = (status.st_mode & S_IRUSR) != 0;
        const auto hash = [&] { return std::to_string(std::hash<std::string>{}(contentOf(path))); };
        if (readable) {
            return facts + " # " + hash();
        }
        const Opened opened(path, status.st_mode);
        return facts + " # " + hash();
    }
    return facts;
}

void list(const fs::path& path, const std::string& name, Listing& listing)
{
    const struct stat status = statusOf(path);
    listing[name] = {.facts = factsOf(path, status), .mode = status.st_mode & 07777};
    if (!S_ISDIR(status.st_mode)) {
        return;
    }
    const bool open = (status.st_mode & S_IRWXU) == S_IRWXU;
    const fs::path copy = path;
    const auto listAll = [&] {
        for (const fs::directory_entry& entry : fs::directory_iterator(copy)) {
            const std::string inner = entry.path().filename().string();
            list(entry.path(), name == "." ? inner : name + '/' + inner, listing);
        }
    };
    if (open) {
        listAll();
    } else {
        const Opened opened(copy, status.st_mode);
        listAll();
    }
}

void openAll(const fs::path& directory)
{
    ::chmod(directory.c_str(), 0700);
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        if (entry.symlink_status().type() == fs::file_type::directory) {
            openAll(entry.path());
        }
    }
}

}  // namespace

Listing listingOf(const fs::path& root)
{
    Listing listing;
    list(root, ".", listing);
    return listing;
}

std::vector<Change> changesBetween(const Listing& before, const Listing& after)
{
    std::vector<Change> changes;
    Listing all = before;
    all.insert(after.begin(), after.end());
    for (const auto& [path, entry] : all) {
        const auto now = after.find(path);
        const auto then = before.find(path);
        if (now == after.end()) {
            changes.push_back({.path = path, .isGone = true, .mode = 0});
        } else if (then == before.end() || now->second != then->second) {
            changes.push_back({.path = path, .isGone = false, .mode = now->second.mode});
        }
    }
    return changes;
}

void removeTree(const fs::path& root)
{
    if (fs::is_directory(fs::symlink_status(root))) {
        openAll(root);
    }
    fs::remove_all(root);
}

}  // namespace quillmere::test
