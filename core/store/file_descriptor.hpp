// Owns a file descriptor.
#pragma once

#include <quillmere/store/posix_call.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace quillmere {

/// Closes the descriptor at the end of the scope.
class FileDescriptor {
public:
    /// Calls open(2) with O_CLOEXEC; throws when it fails.
    FileDescriptor(const std::filesystem::path& path, int flags, mode_t mode = 0)
        : descriptor_(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }))
    {
        if (descriptor_ == -1) {
            throwErrno("open", path);
        }
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (descriptor_ != -1) {
            ::close(descriptor_);
        }
    }

    int get() const noexcept { return descriptor_; }

    /// Closes now and throws when close(2) fails, since some file systems report a failed write only then.
    /// EINTR is not an error: the descriptor is closed.
    void close(const std::filesystem::path& path)
    {
        if (::close(std::exchange(descriptor_, -1)) == -1 && errno != EINTR) {
            throwErrno("close", path);
        }
    }

private:
    int descriptor_;
};

}  // namespace quillmere
