#include "base/system/loaded_library.hpp"

#include "base/refusal.hpp"

#include <dlfcn.h>

#include <string>

namespace quillmere::base {
namespace {

[[noreturn]] void refuse()
{
    const char* const reason = ::dlerror();
    throw Refusal(Refusal::Kind::fileError,
                  std::string("A library of the system cannot be used: ") + (reason ? reason : "unknown"));
}

}  // namespace

LoadedLibrary::LoadedLibrary(std::initializer_list<const char*> names)
{
    for (const char* const name : names) {
        handle_ = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
        if (handle_) {
            return;
        }
    }
    refuse();
}

LoadedLibrary::Symbol LoadedLibrary::operator[](const char* name) const
{
    void* const address = ::dlsym(handle_, name);
    if (!address) {
        refuse();
    }
    return Symbol(address);
}

}  // namespace quillmere::base
