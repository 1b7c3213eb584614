#include "notices/errands.hpp"

#include "notices/child_process.hpp"
#include "system/open_file.hpp"
#include "text/inert.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <ostream>
#include <system_error>

namespace quillmere::app {
namespace {

[[noreturn]] void failInMemory() { throw std::system_error(errno, std::generic_category(), "memfd"); }

/// A file in memory, to be read from its beginning.
OpenFile fileWith(std::string_view text)
{
    OpenFile file(::memfd_create("summary", MFD_CLOEXEC));
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

void Errands::runHook(const std::string& command, std::string_view event, std::string_view summary)
{
    start("The hook \"" + command + "\"", [&] {
        // Whole before the hook starts: nobody has to feed a pipe that may never be read.
        const OpenFile input = fileWith(summary);
        return startChild({.words = {"/bin/sh", "-c", command, "quillmere", std::string(event)},
                           .variables = {"QUILLMERE_EVENT=" + std::string(event)},
                           .input = input.get()});
    });
}

void Errands::open(const std::string& opener, const std::string& link)
{
    start("Opening the screen", [&] { return startChild({.words = {opener, link}}); });
}

void Errands::start(const std::string& name, const std::function<pid_t()>& starting)
{
    try {
        running_.push_back({.child = starting(), .name = name});
    } catch (const std::system_error& error) {
        sayFailure(name, error.code().message());
    }
}

void Errands::takeLeave()
{
    std::erase_if(running_, [this](const Errand& errand) {
        const ChildEnding ending = endingOf(errand.child);
        if (!ending.failure.empty()) {
            sayFailure(errand.name, ending.failure);
        }
        return ending.hasEnded;
    });
}

void Errands::sayFailure(const std::string& name, const std::string& failure)
{
    messages_ << inert(name + " failed: " + failure + ".") << std::endl;
}

}  // namespace quillmere::app
