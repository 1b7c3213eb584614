// An open file.
#pragma once

#include <quillmere/store/posix_call.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace quillmere {

/// Owns a descriptor and closes it.
class FileDescriptor {
public:
    /// open(2), not inherited by programs that are started; throws when it fails.
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

    /// Closes now and reports what closing reports: a file system may say only then that it could not
    /// keep the data. Interrupted, it is closed all the same.
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
