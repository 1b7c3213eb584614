// The owner of a descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace quillmere::base {

/// Owns the descriptor of a socket, a pipe, a watch or an open file, and closes it.
class Descriptor {
public:
    /// -1: owns none.
    explicit Descriptor(int descriptor = -1) noexcept : descriptor_(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~Descriptor()
    {
        if (descriptor_ != -1) {
            ::close(descriptor_);
        }
    }

    int get() const noexcept { return descriptor_; }

    /// Closes it now; returns what close(2) returns, since some file systems report a failed write only then.
    int close() noexcept { return ::close(std::exchange(descriptor_, -1)); }

private:
    int descriptor_;
};

}  // namespace quillmere::base
