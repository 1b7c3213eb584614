// A pipe whose ends are both in this process.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>
#include <string_view>

#include "support/descriptor.hpp"

namespace quillmere::test {

class Pipe {
public:
    Pipe()
    {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
        reader_ = Descriptor(ends[0]);
        writer_ = Descriptor(ends[1]);
        ::fcntl(ends[1], F_SETFL, 0);
    }

    /// In non-blocking mode.
    int reader() const { return reader_.get(); }
    /// In blocking mode.
    int writer() const { return writer_.get(); }

    void closeReader() { reader_.close(); }
    void closeWriter() { writer_.close(); }

    /// Waits while there is no room.
    void write(std::string_view bytes) const
    {
        EXPECT_EQ(::write(writer(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    /// Writes until there is no room for a byte.
    void fill() const
    {
        ::fcntl(writer(), F_SETFL, O_NONBLOCK);
        while (::write(writer(), "full", 1) == 1) {
        }
        ::fcntl(writer(), F_SETFL, 0);
    }

    /// The bytes that are in the pipe now. Never waits.
    std::string take() const
    {
        std::string text;
        std::array<char, 65'536> bytes{};
        for (ssize_t count = 0; (count = ::read(reader(), bytes.data(), bytes.size())) > 0;) {
            text.append(bytes.data(), static_cast<std::size_t>(count));
        }
        return text;
    }

private:
    Descriptor reader_;
    Descriptor writer_;
};

}  // namespace quillmere::test
