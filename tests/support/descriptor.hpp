// An open file descriptor, closed at the end of its owner's life.
#pragma once

#include <unistd.h>

#include <utility>

namespace quillmere::test {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        if (this != &other) {
            close();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }
    ~Descriptor() { close(); }

    int get() const { return number_; }  ///< -1 when nothing is open
    bool isOpen() const { return number_ != -1; }
    void close()
    {
        if (number_ != -1) {
            ::close(std::exchange(number_, -1));
        }
    }

private:
    int number_ = -1;
};

}  // namespace quillmere::test
