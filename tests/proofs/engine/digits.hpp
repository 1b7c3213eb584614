// A number as a choice on each of several axes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quillmere::test {

/// Splits a number into digits, each in its own base.
class Digits {
public:
    explicit Digits(std::uint64_t number) : number_(number) {}

    std::size_t next(std::size_t base)
    {
        const std::uint64_t digit = number_ % base;
        number_ /= base;
        return static_cast<std::size_t>(digit);
    }

    template <class Row, std::size_t count>
    const Row& oneOf(const std::array<Row, count>& rows)
    {
        return rows[next(count)];
    }

private:
    std::uint64_t number_;
};

}  // namespace quillmere::test
