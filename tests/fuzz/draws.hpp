// An input as a sequence of decisions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmere::test {

/// Returns the bytes of an input one after another, and then zeros.
class Draws {
public:
    Draws(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    bool empty() const { return left_ == 0; }

    std::uint8_t byte()
    {
        if (left_ == 0) {
            return 0;
        }
        --left_;
        return *data_++;
    }

    /// A number below `limit`, which is at most 256.
    std::size_t below(std::size_t limit) { return byte() % limit; }

    /// Up to 15 unchanged bytes, so texts may be ill-formed.
    std::string text()
    {
        std::string text;
        for (std::size_t length = below(16); length > 0; --length) {
            text += static_cast<char>(byte());
        }
        return text;
    }

private:
    const std::uint8_t* data_;
    std::size_t left_;
};

}  // namespace quillmere::test
