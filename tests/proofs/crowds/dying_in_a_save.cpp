// Preloaded into the program: kills it at a chosen step of its save, while it holds the lock.
//
// QUILLMERE_TEST_STEP is the step, counted from 1. Each fsync and each rename is a step; the chosen one is
// not executed. Calls on the previous version kept in the state home are not counted.
#include <dlfcn.h>
#include <signal.h>
#include <stdio.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

std::string pathOf(int descriptor)
{
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return {path.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
}

void takeStep(std::string_view path)
{
    if (path.starts_with(std::getenv("XDG_STATE_HOME"))) {
        return;
    }
    static int steps = 0;
    if (++steps == std::atoi(std::getenv("QUILLMERE_TEST_STEP"))) {
        ::kill(::getpid(), SIGKILL);
    }
}

}  // namespace

extern "C" int fsync(int descriptor)
{
    static const auto next = reinterpret_cast<int (*)(int)>(::dlsym(RTLD_NEXT, "fsync"));
    takeStep(pathOf(descriptor));
    return next(descriptor);
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    using Rename = int (*)(const char*, const char*);
    static const auto next = reinterpret_cast<Rename>(::dlsym(RTLD_NEXT, "rename"));
    takeStep(to);
    return next(from, to);
}
