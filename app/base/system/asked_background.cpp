#include "base/system/asked_background.hpp"

#include "base/system/held_signals.hpp"
#include "base/system/wait.hpp"
#include "base/system/write.hpp"
#include "base/text/terminal_background.hpp"

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string>
#include <string_view>

namespace quillmere::base {
namespace {

constexpr std::string_view askForAttributes = "\x1b[c";
constexpr std::chrono::seconds patience{1};

/// Input arrives byte by byte and is not shown, for as long as this lives.
class SilentInput {
public:
    explicit SilentInput(int terminal) : terminal_(terminal), isSilent_(::tcgetattr(terminal, &before_) == 0)
    {
        if (isSilent_) {
            termios silent = before_;
            silent.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
            silent.c_cc[VMIN] = 0;
            silent.c_cc[VTIME] = 0;
            isSilent_ = ::tcsetattr(terminal, TCSANOW, &silent) == 0;
        }
    }
    SilentInput(const SilentInput&) = delete;
    SilentInput& operator=(const SilentInput&) = delete;
    ~SilentInput()
    {
        if (isSilent_) {
            ::tcsetattr(terminal_, TCSANOW, &before_);
        }
    }

    explicit operator bool() const { return isSilent_; }

private:
    int terminal_;
    termios before_{};
    bool isSilent_;
};

bool isInForeground(int terminal) { return ::tcgetpgrp(terminal) == ::getpgrp(); }

bool hasInput(int terminal)
{
    int count = 0;
    return ::ioctl(terminal, FIONREAD, &count) == 0 && count > 0;
}

/// Whether the attributes have arrived: "CSI ? … c".
bool hasAttributes(std::string_view answers)
{
    const std::size_t begin = answers.find("\x1b[?");
    return begin != std::string_view::npos && answers.find('c', begin) != std::string_view::npos;
}

/// All that the terminal answers within the time, or until a signal arrives.
std::string answersOf(int terminal, const HeldSignals& ending)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + patience;
    std::string answers;
    while (!hasAttributes(answers)) {
        std::array<PollSource, 2> sources = {{{terminal}, {ending.descriptor()}}};
        const Clock::time_point now = Clock::now();
        if (now >= end) {
            break;
        }
        waitFor(sources, end - now);
        if (sources[1].isReady()) {
            break;
        }
        std::array<char, 256> bytes;
        const ssize_t count = sources[0].isReady() ? ::read(terminal, bytes.data(), bytes.size()) : 0;
        if (sources[0].hasFailed() || count < 0) {
            break;
        }
        answers.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return answers;
}

std::optional<Background> backgroundIn(std::string_view answers)
{
    const std::size_t begin = answers.find("\x1b]");
    if (begin == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view answer = answers.substr(begin + 2);
    return backgroundFrom(answer.substr(0, answer.find_first_of("\x1b\a")));
}

}  // namespace

std::optional<Background> askedBackground(int input, int output)
{
    if (!isInForeground(input)) {
        return std::nullopt;
    }
    // A signal that ended the process here would leave the terminal silent.
    const HeldSignals ending{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};
    std::string answers;
    if (const SilentInput silent{input}; silent && !hasInput(input)) {
        writeWithoutWaiting(output, std::string(askForBackground).append(askForAttributes));
        answers = answersOf(input, ending);
    }
    for (const int signal : ending.take()) {
        haveUsualEffect(signal);
    }
    return backgroundIn(answers);
}

}  // namespace quillmere::base
