#include "notices/subprocesses.hpp"

#include "base/system/child_process.hpp"
#include "base/system/descriptor.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace quillmere::notices {
namespace {

constexpr std::ptrdiff_t mostHooks = 8;

[[noreturn]] void throwMemoryFileError() { throw std::system_error(errno, std::generic_category(), "memfd"); }

/// A file in memory, positioned at its beginning.
base::Descriptor memoryFile(std::string_view text)
{
    base::Descriptor file(::memfd_create("summary", MFD_CLOEXEC));
    if (file.get() == -1) {
        throwMemoryFileError();
    }
    while (!text.empty()) {
        const ssize_t count = ::write(file.get(), text.data(), text.size());
        if (count == -1 && errno != EINTR) {
            throwMemoryFileError();
        }
        text.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    if (::lseek(file.get(), 0, SEEK_SET) == -1) {
        throwMemoryFileError();
    }
    return file;
}

}  // namespace

bool Subprocesses::mayRunHook(base::Moment now)
{
    const auto count = std::count_if(running_.begin(), running_.end(),
                                     [](const Running& process) { return process.isHook; });
    if (count >= mostHooks) {
        hookErrors_.report("full", "Hooks wait until one of the eight that run has ended.");
        return false;
    }
    return !starting_.isPausing(now);
}

bool Subprocesses::runHook(const std::string& command, std::string_view event, std::string_view summary,
                           base::Moment now)
{
    try {
        // A file and not a pipe: a hook that does not read would block the writer.
        const base::Descriptor input = memoryFile(summary);
        const pid_t child =
            base::startChild({.words = {"/bin/sh", "-c", command, "quillmere", std::string(event)},
                              .variables = {"QUILLMERE_EVENT=" + std::string(event)},
                              .input = input.get()});
        running_.push_back({.child = child, .name = "The hook \"" + command + "\"", .isHook = true});
    } catch (const std::system_error& error) {
        starting_.failed(now);
        hookErrors_.report("start", "Hooks cannot be started now: " + error.code().message() + ".");
        return false;
    }
    starting_.succeeded();
    return true;
}

void Subprocesses::reportNoHookWaits() { hookErrors_.resolve("No hook waits any more."); }

void Subprocesses::openLink(const std::string& opener, const std::string& link)
{
    const std::string name = "Opening the screen";
    try {
        running_.push_back(
            {.child = base::startChild({.words = {opener, link}}), .name = name, .isHook = false});
    } catch (const std::system_error& error) {
        reportFailure(name, error.code().message());
    }
}

void Subprocesses::reap()
{
    std::erase_if(running_, [this](const Running& process) {
        const base::ChildEnding ending = base::endingOf(process.child);
        if (!ending.failure.empty()) {
            reportFailure(process.name, ending.failure);
        }
        return ending.hasEnded;
    });
}

void Subprocesses::reportFailure(const std::string& name, const std::string& failure)
{
    messages_.say(name + " failed: " + failure + ".");
}

}  // namespace quillmere::notices
