#include "statefile/window.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace quillmere::statefile {
namespace {

[[noreturn]] void throwError(int code, const std::filesystem::path& path)
{
    throw std::filesystem::filesystem_error("read", path, {code, std::generic_category()});
}

}  // namespace

OpenFile::OpenFile(const std::filesystem::path& path)
    // Opening a FIFO would wait for a writer without O_NONBLOCK.
    : descriptor_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
{
    struct stat status;
    if (descriptor_.get() == -1 || ::fstat(descriptor_.get(), &status) != 0) {
        throwError(errno, path);
    }
    if (!S_ISREG(status.st_mode)) {
        throwError(EINVAL, path);
    }
    size_ = static_cast<std::size_t>(status.st_size);
    modified_ = status.st_mtim;
}

bool OpenFile::hasChanged() const
{
    struct stat status;
    return ::fstat(descriptor_.get(), &status) != 0 || static_cast<std::size_t>(status.st_size) != size_ ||
           status.st_mtim.tv_sec != modified_.tv_sec || status.st_mtim.tv_nsec != modified_.tv_nsec;
}

std::size_t OpenFile::read(char* bytes, std::size_t count, std::size_t offset) const
{
    ssize_t result = 0;
    do {
        result = ::pread(descriptor_.get(), bytes, count, static_cast<off_t>(offset));
    } while (result == -1 && errno == EINTR);
    if (result == -1) {
        throw std::system_error(errno, std::generic_category(), "pread");
    }
    return static_cast<std::size_t>(result);
}

std::string OpenFile::textFrom(std::size_t begin) const
{
    std::string text(size_ - std::min(begin, size_), '\0');
    std::size_t filled = 0;
    while (filled < text.size()) {
        const std::size_t count = read(text.data() + filled, text.size() - filled, begin + filled);
        if (count == 0) {
            break;
        }
        filled += count;
    }
    text.resize(filled);
    return text;
}

bool Window::extend()
{
    constexpr std::size_t usualSize = 1 << 17;  // stays in the processor's cache
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
              buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
    end_ -= begin_;
    begin_ = 0;
    if (end_ == buffer_.size()) {
        buffer_.resize(std::max(usualSize, 2 * buffer_.size()));
    }
    const std::size_t count = file_.read(buffer_.data() + end_, buffer_.size() - end_, fileOffset_);
    end_ += count;
    fileOffset_ += count;
    return count > 0;
}

}  // namespace quillmere::statefile
