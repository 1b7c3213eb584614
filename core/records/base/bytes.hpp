// The bytes of a whole file in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace quillmere {

/// An owned run of bytes that grows without being filled first. What it holds is followed by `slack` zero
/// bytes that are not part of it, so that a parser may read a little past the end; only one that has never
/// been given anything, or was moved from, has none. Every
/// allocation can throw `std::bad_alloc` and then changes nothing.
class Bytes {
public:
    static constexpr std::size_t slack = 64;

    Bytes() noexcept = default;

    // What was moved from is empty.
    Bytes(Bytes&& other) noexcept
        : storage_(std::move(other.storage_)),
          size_(std::exchange(other.size_, 0)),
          capacity_(std::exchange(other.capacity_, 0))
    {
    }
    Bytes& operator=(Bytes&& other) noexcept
    {
        storage_ = std::move(other.storage_);
        size_ = std::exchange(other.size_, 0);
        capacity_ = std::exchange(other.capacity_, 0);
        return *this;
    }

    /// A copy of `text`.
    explicit Bytes(std::string_view text);

    std::size_t size() const noexcept { return size_; }
    std::size_t capacity() const noexcept { return capacity_; }
    std::string_view view() const noexcept { return {storage_.get(), size_}; }

    /// Room for at least `count` bytes behind those already held; returns where they go. The bytes
    /// count once `commit` has been called. Invalidates earlier pointers.
    char* reserve(std::size_t count);

    /// Takes over `count` bytes written to the place that `reserve` returned.
    void commit(std::size_t count) noexcept;

private:
    std::unique_ptr<char[]> storage_;  ///< capacity_ + slack bytes, or none
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace quillmere
