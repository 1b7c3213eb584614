#include "notices/subprocesses.hpp"

#include "base/system/child_process.hpp"
#include "base/system/descriptor.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>

namespace quillmere::notices {
namespace {

constexpr std::ptrdiff_t mostHooks = 8;

[[noreturn]] void failInMemory() { throw std::system_error(errno, std::generic_category(), "memfd"); }

/// A file in memory, to be read from its beginning.
base::Descriptor fileWith(std::string_view text)
{
    base::Descriptor file(::memfd_create("summary", MFD_CLOEXEC));
    if (file.get() == -1) {
        failInMemory();
    }
    while (!text.empty()) {
        const ssize_t count = ::write(file.get(), text.data(), text.size());
        if (count == -1 && errno != EINTR) {
            failInMemory();
        }
        text.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    if (::lseek(file.get(), 0, SEEK_SET) == -1) {
        failInMemory();
    }
    return file;
}

}  // namespace

bool Subprocesses::mayRunHook()
{
    const auto count =
        std::count_if(running_.begin(), running_.end(), [](const Errand& errand) { return errand.isHook; });
    if (count >= mostHooks) {
        hooksTrouble_.met("full", "Hooks wait until one of the eight that run has ended.");
        return false;
    }
    return !starting_.isPausing(std::chrono::steady_clock::now());
}

bool Subprocesses::runHook(const std::string& command, std::string_view event, std::string_view summary)
{
    try {
        // Whole before the hook starts: nobody has to feed a pipe that may never be read.
        const base::Descriptor input = fileWith(summary);
        const pid_t child =
            base::startChild({.words = {"/bin/sh", "-c", command, "quillmere", std::string(event)},
                              .variables = {"QUILLMERE_EVENT=" + std::string(event)},
                              .input = input.get()});
        running_.push_back({.child = child, .name = "The hook \"" + command + "\"", .isHook = true});
    } catch (const std::system_error& error) {
        starting_.failed(std::chrono::steady_clock::now());
        hooksTrouble_.met("start", "Hooks cannot be started now: " + error.code().message() + ".");
        return false;
    }
    starting_.worked();
    return true;
}

void Subprocesses::noHookWaits() { hooksTrouble_.isOver("No hook waits any more."); }

void Subprocesses::open(const std::string& opener, const std::string& link)
{
    const std::string name = "Opening the screen";
    try {
        running_.push_back(
            {.child = base::startChild({.words = {opener, link}}), .name = name, .isHook = false});
    } catch (const std::system_error& error) {
        sayFailure(name, error.code().message());
    }
}

void Subprocesses::takeLeave()
{
    std::erase_if(running_, [this](const Errand& errand) {
        const base::ChildEnding ending = base::endingOf(errand.child);
        if (!ending.failure.empty()) {
            sayFailure(errand.name, ending.failure);
        }
        return ending.hasEnded;
    });
}

void Subprocesses::sayFailure(const std::string& name, const std::string& failure)
{
    messages_.say(name + " failed: " + failure + ".");
}

}  // namespace quillmere::notices
