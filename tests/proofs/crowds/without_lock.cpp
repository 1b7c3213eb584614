// Preloaded into the program: disables the lock and lets no process save before the whole crowd has loaded.
//
// QUILLMERE_TEST_RENDEZVOUS names a file that holds a Rendezvous. A process waits there before its first
// rename: after its load, and before its save has any visible effect.
#include <dlfcn.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/mman.h>

#include "proofs/crowds/crowd.hpp"
#include "proofs/crowds/rendezvous.hpp"

namespace {

using quillmere::test::Rendezvous;

void meetTheOthers()
{
    const int file = ::open(std::getenv("QUILLMERE_TEST_RENDEZVOUS"), O_RDWR | O_CLOEXEC);
    void* const memory = ::mmap(nullptr, sizeof(Rendezvous), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED) {
        std::abort();
    }
    static_cast<Rendezvous*>(memory)->meet(quillmere::test::crowdSize);
}

}  // namespace

extern "C" int flock(int, int) noexcept { return 0; }

extern "C" int rename(const char* from, const char* to) noexcept
{
    using Rename = int (*)(const char*, const char*);
    static const auto next = reinterpret_cast<Rename>(::dlsym(RTLD_NEXT, "rename"));
    static bool hasMet = false;
    if (!hasMet) {
        hasMet = true;
        meetTheOthers();
    }
    return next(from, to);
}
