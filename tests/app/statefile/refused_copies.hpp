// Makes copy_file_range(2) fail, in programs that are linked with --wrap=copy_file_range.
#pragma once

#include <cstddef>

namespace quillmere::test {

/// While it lives, each call fails with an error; without one it copies a few bytes at most.
class RefusedCopies {
public:
    explicit RefusedCopies(int error, std::size_t most = 0);
    RefusedCopies(const RefusedCopies&) = delete;
    RefusedCopies& operator=(const RefusedCopies&) = delete;
    ~RefusedCopies();
};

}  // namespace quillmere::test
