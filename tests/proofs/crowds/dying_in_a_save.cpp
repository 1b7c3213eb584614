// Loaded into the program before all else: it dies at a chosen step of its save, where it holds the lock.
//
// QUILLMERE_TEST_STEP says at which, counted from 1: each fsync and each rename is one, and is not done.
#include <dlfcn.h>
#include <signal.h>
#include <stdio.h>
#include <unistd.h>

#include <cstdlib>

namespace {

void takeStep()
{
    static int steps = 0;
    if (++steps == std::atoi(std::getenv("QUILLMERE_TEST_STEP"))) {
        ::kill(::getpid(), SIGKILL);
    }
}

}  // namespace

extern "C" int fsync(int descriptor)
{
    static const auto next = reinterpret_cast<int (*)(int)>(::dlsym(RTLD_NEXT, "fsync"));
    takeStep();
    return next(descriptor);
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    using Rename = int (*)(const char*, const char*);
    static const auto next = reinterpret_cast<Rename>(::dlsym(RTLD_NEXT, "rename"));
    takeStep();
    return next(from, to);
}
