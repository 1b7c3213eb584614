// An open file without a path.
#pragma once

#include <unistd.h>

#include <utility>

namespace quillmere::app {

/// Owns the descriptor of a socket, a pipe or the like, and closes it.
class OpenFile {
public:
    explicit OpenFile(int descriptor = -1) noexcept : descriptor_(descriptor) {}
    OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    OpenFile& operator=(OpenFile&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~OpenFile()
    {
        if (descriptor_ != -1) {
            ::close(descriptor_);
        }
    }

    /// -1: none.
    int get() const noexcept { return descriptor_; }

private:
    int descriptor_;
};

}  // namespace quillmere::app
