#include "refused_inotify.hpp"

#include <cerrno>
#include <cstdint>

namespace quillmere::test {
namespace {

int initError = 0;
int addError = 0;

bool fails(int error)
{
    errno = error != 0 ? error : errno;
    return error != 0;
}

}  // namespace

RefusedInotify::RefusedInotify(int errorOfInit, int errorOfAdd)
{
    initError = errorOfInit;
    addError = errorOfAdd;
}

RefusedInotify::~RefusedInotify()
{
    initError = 0;
    addError = 0;
}

}  // namespace quillmere::test

// The names are those of the linker option --wrap.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

int __real_inotify_init1(int flags);
int __real_inotify_add_watch(int descriptor, const char* path, std::uint32_t events);

int __wrap_inotify_init1(int flags)
{
    return quillmere::test::fails(quillmere::test::initError) ? -1 : __real_inotify_init1(flags);
}

int __wrap_inotify_add_watch(int descriptor, const char* path, std::uint32_t events)
{
    return quillmere::test::fails(quillmere::test::addError)
               ? -1
               : __real_inotify_add_watch(descriptor, path, events);
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
