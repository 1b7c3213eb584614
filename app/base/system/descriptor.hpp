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

private:
    int descriptor_;
};

}  // namespace quillmere::base
