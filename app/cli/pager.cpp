#include "cli/pager.hpp"

#include "base/system/child_process.hpp"
#include "base/system/descriptor.hpp"
#include "base/system/held_signals.hpp"
#include "cli/ignored_key_signals.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <string_view>
#include <system_error>
#include <utility>

namespace quillmere::cli {
namespace {

/// Absent when there is to be none.
std::optional<std::string> pagerOfThisUser()
{
    const char* const named = std::getenv("PAGER");
    const std::string pager = named ? named : "less";
    return pager.empty() || pager == "cat" ? std::nullopt : std::optional(pager);
}

/// Its two ends: for reading, and for writing.
std::pair<base::Descriptor, base::Descriptor> makePipe()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    return {base::Descriptor(ends[0]), base::Descriptor(ends[1])};
}

/// Stops when the person has left the pager.
void writeAll(int descriptor, std::string_view text)
{
    const base::BrokenPipesAreErrors stays;
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count > 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return;
        }
    }
}

/// Whether the pager could be run.
bool showIn(const std::string& pager, const std::string& text, int output)
{
    auto [reading, writing] = makePipe();
    std::vector<std::string> variables;
    if (!std::getenv("LESS")) {
        variables.emplace_back("LESS=FRX");
    }
    const IgnoredKeySignals ignored;
    const pid_t child = base::startChild({.words = {"sh", "-c", pager},
                                          .variables = std::move(variables),
                                          .input = reading.get(),
                                          .output = output});
    reading = base::Descriptor();
    writeAll(writing.get(), text);
    writing = base::Descriptor();
    // The shell's exit code for a command that is not found, or cannot be executed.
    const std::string failure = base::awaitEnding(child).failure;
    return failure != "it ended with 127" && failure != "it ended with 126";
}

}  // namespace

void page(base::Environment& environment, const std::string& text)
{
    const std::optional<std::string> pager = pagerOfThisUser();
    environment.out.flush();
    const bool isShown = environment.outputIsTerminal && environment.output != -1 && pager &&
                         showIn(*pager, text, environment.output);
    if (!isShown) {
        environment.out << text;
    }
}

}  // namespace quillmere::cli
