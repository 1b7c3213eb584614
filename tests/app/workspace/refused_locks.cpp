#include "refused_locks.hpp"

#include <fcntl.h>

#include <cerrno>
#include <cstdarg>
#include <utility>

namespace quillmere::test {
namespace {

int flockError = 0;
int fcntlError = 0;
std::function<void()> callBefore;

}  // namespace

RefusedLocks::RefusedLocks(int errorOfFlock, int errorOfFcntl)
{
    flockError = errorOfFlock;
    fcntlError = errorOfFcntl;
}

RefusedLocks::~RefusedLocks()
{
    flockError = 0;
    fcntlError = 0;
}

void beforeNextLock(std::function<void()> call) { callBefore = std::move(call); }

}  // namespace quillmere::test

// The names are those of the linker option --wrap.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

int __real_flock(int descriptor, int operation);
int __real_fcntl(int descriptor, int command, void* argument);

int __wrap_flock(int descriptor, int operation)
{
    if (quillmere::test::flockError != 0) {
        errno = quillmere::test::flockError;
        return -1;
    }
    return __real_flock(descriptor, operation);
}

int __wrap_fcntl(int descriptor, int command, ...)
{
    if (command == F_OFD_SETLK && quillmere::test::callBefore) {
        std::exchange(quillmere::test::callBefore, nullptr)();
    }
    if (command == F_OFD_SETLK && quillmere::test::fcntlError != 0) {
        errno = quillmere::test::fcntlError;
        return -1;
    }
    std::va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    return __real_fcntl(descriptor, command, argument);
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
