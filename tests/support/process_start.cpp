#include "support/process_start.hpp"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string_view>
#include <system_error>

extern char** environ;  // NOLINT(readability-redundant-declaration): not declared on every system

namespace quillmere::test {
namespace {

using Kind = Channel::Kind;

[[noreturn]] void fail(const std::string& what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

Descriptor opened(int number, const std::string& what)
{
    if (number == -1) {
        fail(what);
    }
    return Descriptor(number);
}

struct Ends {
    Descriptor read;
    Descriptor write;
};

Ends makePipe()
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        fail("pipe2");
    }
    return {.read = Descriptor(ends[0]), .write = Descriptor(ends[1])};
}

Ends makeSocketPair()
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        fail("socketpair");
    }
    return {.read = Descriptor(ends[0]), .write = Descriptor(ends[1])};
}

/// Opens a file without a name.
Descriptor makeAnonymousFile()
{
#ifdef __linux__
    return opened(::memfd_create("captured", MFD_CLOEXEC), "memfd_create");
#else
    std::FILE* const file = std::tmpfile();
    if (!file) {
        fail("tmpfile");
    }
    Descriptor copy = opened(::fcntl(::fileno(file), F_DUPFD_CLOEXEC, 0), "tmpfile");
    std::fclose(file);
    return copy;
#endif
}

void writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count == -1 && errno != EINTR) {
            fail("write");
        }
        text.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
}

/// The smallest possible pipe, completely filled.
Ends makeFullPipe()
{
    Ends ends = makePipe();
#ifdef F_SETPIPE_SZ
    ::fcntl(ends.write.get(), F_SETPIPE_SZ, 4096);
#endif
    const int flags = ::fcntl(ends.write.get(), F_GETFL);
    ::fcntl(ends.write.get(), F_SETFL, flags | O_NONBLOCK);
    while (::write(ends.write.get(), "\n", 1) == 1) {
    }
    ::fcntl(ends.write.get(), F_SETFL, flags);
    return ends;
}

Ends makeTerminal(const ProcessOptions& options)
{
    Ends ends;
    ends.read = opened(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt");
    if (::grantpt(ends.read.get()) != 0 || ::unlockpt(ends.read.get()) != 0) {
        fail("unlockpt");
    }
    const char* const name = ::ptsname(ends.read.get());
    // Opened before typing, because a terminal forgets its input while nobody has it open.
    ends.write = opened(::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC), name);
    winsize size{};
    size.ws_row = options.terminal.rows;
    size.ws_col = options.terminal.columns;
    ::ioctl(ends.write.get(), TIOCSWINSZ, &size);
    writeAll(ends.read.get(), options.typed);
    return ends;
}

/// Both sides of the channels.
struct Channels {
    StartedProcess test;              ///< the test's side
    Ends terminal;                    ///< the read end is the test's side
    std::array<Descriptor, 3> child;  ///< the child's side
    std::array<int, 3> sources;       ///< the descriptor for each channel; -1: closed
};

int inputOf(const Channel& channel, Channels& channels)
{
    Descriptor& source = channels.child[STDIN_FILENO];
    switch (channel.kind) {
        case Kind::inherited: return STDIN_FILENO;
        case Kind::closed: return -1;
        case Kind::descriptor: return channel.descriptor;
        case Kind::terminal: return channels.terminal.write.get();
        case Kind::file:
            source = opened(::open(channel.file.c_str(), O_RDONLY | O_CLOEXEC), channel.file);
            break;
        case Kind::text:
            source = makeAnonymousFile();
            writeAll(source.get(), channel.content);
            ::lseek(source.get(), 0, SEEK_SET);
            break;
        case Kind::pipe:
        case Kind::socket: {
            Ends ends = channel.kind == Kind::pipe ? makePipe() : makeSocketPair();
            source = std::move(ends.read);
            channels.test.input = std::move(ends.write);
            break;
        }
        default: source = opened(::open("/dev/null", O_RDONLY | O_CLOEXEC), "/dev/null");
    }
    return source.get();
}

int outputOf(int number, const Channel& channel, Channels& channels)
{
    Descriptor& source = channels.child.at(static_cast<std::size_t>(number));
    switch (channel.kind) {
        case Kind::inherited: return number;
        case Kind::closed: return -1;
        case Kind::descriptor: return channel.descriptor;
        case Kind::terminal: return channels.terminal.write.get();
        case Kind::sameAsOut: return channels.sources[STDOUT_FILENO];
        case Kind::file:
            source = opened(::open(channel.file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600),
                            channel.file);
            break;
        case Kind::captured:
            source = makeAnonymousFile();
            (number == STDOUT_FILENO ? channels.test.capturedOut : channels.test.capturedErr) =
                opened(::fcntl(source.get(), F_DUPFD_CLOEXEC, 0), "fcntl");
            break;
        case Kind::pipe:
        case Kind::fullPipe:
        case Kind::socket: {
            Ends ends = channel.kind == Kind::pipe     ? makePipe()
                        : channel.kind == Kind::socket ? makeSocketPair()
                                                       : makeFullPipe();
            source = std::move(ends.write);
            channels.test.output = std::move(ends.read);
            break;
        }
        default: source = opened(::open("/dev/null", O_WRONLY | O_CLOEXEC), "/dev/null");
    }
    return source.get();
}

Channels makeChannels(const ProcessOptions& options)
{
    Channels channels;
    if (options.input.kind == Kind::terminal || options.output.kind == Kind::terminal) {
        channels.terminal = makeTerminal(options);
        channels.test.input = opened(::fcntl(channels.terminal.read.get(), F_DUPFD_CLOEXEC, 0), "fcntl");
        channels.test.output = std::move(channels.terminal.read);
    }
    channels.sources[STDIN_FILENO] = inputOf(options.input, channels);
    channels.sources[STDOUT_FILENO] = outputOf(STDOUT_FILENO, options.output, channels);
    channels.sources[STDERR_FILENO] = outputOf(STDERR_FILENO, options.error, channels);
    return channels;
}

std::vector<std::string> environmentOf(const ProcessOptions& options)
{
    std::vector<std::string> all;
    for (char** entry = environ; options.inheritsEnvironment && *entry; ++entry) {
        const std::string text = *entry;
        if (!options.environment.contains(text.substr(0, text.find('=')))) {
            all.push_back(text);
        }
    }
    for (const auto& [name, value] : options.environment) {
        if (value) {
            all.push_back(name + "=" + *value);
        }
    }
    return all;
}

/// The null-terminated array of pointers for exec(3).
std::vector<char*> pointersTo(std::vector<std::string>& words)
{
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// In the child: installs the three channels. Sources below 3 are moved away first, so that none overwrites
/// another.
void placeChannels(std::array<int, 3> sources)
{
    for (int& source : sources) {
        if (source >= 0 && source <= STDERR_FILENO) {
            source = ::fcntl(source, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        }
    }
    for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
        const int source = sources.at(static_cast<std::size_t>(number));
        if (source == -1) {
            ::close(number);
        } else {
            ::dup2(source, number);
        }
    }
}

[[noreturn]] void workAndExit(const std::function<int()>& work)
{
    int code = 1;
    try {
        code = work();
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    std::cout.flush();
    std::fflush(nullptr);
    ::_exit(code);
}

/// In the child; writes the error to `report` when the program cannot be started.
[[noreturn]] void becomeChild(const ProcessOptions& options, Channels& channels, char* const* words,
                              char** environment, int report)
{
    if (channels.terminal.write.isOpen()) {
        ::setsid();
        ::ioctl(channels.terminal.write.get(), TIOCSCTTY, 0);
    } else {
        ::setpgid(0, 0);
    }
    placeChannels(channels.sources);
    // exec(3) closes the test's ends, but a function would keep them and never see the end of its own input.
    channels.test = {};
    environ = environment;
    bool isReady = options.directory.empty() || ::chdir(options.directory.c_str()) == 0;
    if (isReady && options.inChild) {
        options.inChild();
    }
    if (isReady && options.work) {
        ::close(report);
        workAndExit(options.work);
    }
    if (isReady) {
        ::execvp(words[0], words);
    }
    const int error = errno;
    [[maybe_unused]] const ssize_t count = ::write(report, &error, sizeof error);
    ::_exit(127);
}

}  // namespace

StartedProcess startProcess(const ProcessOptions& options)
{
    Channels channels = makeChannels(options);
    std::vector<std::string> words = options.words;
    std::vector<std::string> environment = environmentOf(options);
    const std::vector<char*> wordPointers = pointersTo(words);
    std::vector<char*> environmentPointers = pointersTo(environment);
    // A successful exec(3) closes this pipe.
    Ends report = makePipe();
    // Otherwise the copy of this process would print the buffered output again.
    std::cout.flush();
    std::fflush(nullptr);
    const pid_t process = ::fork();
    if (process == -1) {
        fail("fork");
    }
    if (process == 0) {
        becomeChild(options, channels, wordPointers.data(), environmentPointers.data(), report.write.get());
    }
    report.write.close();
    int error = 0;
    if (::read(report.read.get(), &error, sizeof error) == sizeof error) {
        ::waitpid(process, nullptr, 0);
        throw std::system_error(error, std::generic_category(),
                                options.words.empty() ? "a function" : options.words.front());
    }
    channels.test.process = process;
    return std::move(channels.test);
}

}  // namespace quillmere::test
