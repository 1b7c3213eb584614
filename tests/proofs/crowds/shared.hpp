// Memory shared between processes.
#pragma once

#include <sys/mman.h>

#include <new>

namespace quillmere::test {

/// A value that a process shares with its child processes. Members that several processes change must be
/// atomic.
template <class Value>
class Shared {
public:
    Shared()
    {
        void* const memory =
            ::mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) {
            throw std::bad_alloc();
        }
        value_ = new (memory) Value{};
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared() { ::munmap(value_, sizeof(Value)); }

    Value& operator*() const { return *value_; }
    Value* operator->() const { return value_; }

private:
    Value* value_;
};

}  // namespace quillmere::test
