// A growing buffer for the bytes of a file.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace quillmere {

/// A buffer whose new memory is not initialised before it is written. `slack` zero bytes follow the content,
/// so that a parser may read past its end; they do not count in `size`. An empty buffer that has never
/// allocated, or was moved from, has no slack. Every allocation may throw `std::bad_alloc`; the buffer is
/// then unchanged.
class Bytes {
public:
    static constexpr std::size_t slack = 64;

    Bytes() noexcept = default;

    // A buffer that was moved from is empty.
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

    /// Makes room for at least `count` more bytes and returns the place to write them. Invalidates earlier
    /// pointers. The bytes belong to the content once `commit` is called.
    char* reserve(std::size_t count);

    /// Adds the `count` bytes that were written to the place from `reserve` to the content.
    void commit(std::size_t count) noexcept;

private:
    std::unique_ptr<char[]> storage_;  ///< capacity_ + slack bytes, or null
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace quillmere
