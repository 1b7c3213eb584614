#include "refused_copies.hpp"

#include <sys/types.h>

#include <algorithm>
#include <cerrno>

namespace quillmere::test {
namespace {

struct Answer {
    int error;
    std::size_t most;
    bool isGiven;
};

Answer answer{};

}  // namespace

RefusedCopies::RefusedCopies(int error, std::size_t most) { answer = {error, most, true}; }

RefusedCopies::~RefusedCopies() { answer = {}; }

}  // namespace quillmere::test

// The names are those of the linker option --wrap.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

ssize_t __real_copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, std::size_t count,
                               unsigned flags);

ssize_t __wrap_copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, std::size_t count,
                               unsigned flags)
{
    const auto& answer = quillmere::test::answer;
    if (answer.isGiven && answer.error != 0) {
        errno = answer.error;
        return -1;
    }
    const std::size_t most = answer.isGiven ? std::min(count, answer.most) : count;
    return __real_copy_file_range(from, fromOffset, to, toOffset, most, flags);
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
