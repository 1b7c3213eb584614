#include "real_program.hpp"

#include <string>

namespace quillmere::test {

ProcessOptions realProgram(const Words& arguments, const Channels& channels)
{
    Words words = {QUILLMERE_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return {.words = words, .input = channels.in, .output = channels.out, .error = channels.err};
}

bool canTrace()
{
    static const bool can = succeeds({"strace", "-o", "/dev/null", "true"});
    return can;
}

ProcessOptions traced(ProcessOptions options, const Words& straceOptions)
{
    options.words.insert(options.words.begin(), straceOptions.begin(), straceOptions.end());
    options.words.insert(options.words.begin(), "strace");
    // The leak check at exit needs ptrace, which strace already uses.
    options.environment["ASAN_OPTIONS"] = "detect_leaks=0";
    return options;
}

ProcessEnding runProgram(const Words& arguments, const Channels& channels)
{
    return run(realProgram(arguments, channels));
}

ProcessEnding runOnTerminal(const Words& arguments, const std::string& typed)
{
    const Channel terminal = Channel::terminal();
    ProcessOptions options = realProgram(arguments, {.in = terminal, .out = terminal, .err = terminal});
    options.typed = typed;
    // libtinfo keeps 8 bytes of each look-up of a terminal, and every prompt makes one.
    const TemporaryDirectory suppressions;
    const std::filesystem::path file = suppressions.path() / "leaks";
    writeText(file, "leak:_nc_trim_sgr0\n");
    options.environment["LSAN_OPTIONS"] = "print_suppressions=0:suppressions=" + file.string();
    Process program(options);
    // Before the end: the terminal holds a limited amount.
    std::string printed = program.rest();
    std::erase(printed, '\r');
    ProcessEnding ending = program.wait();
    ending.out = printed;
    return ending;
}

}  // namespace quillmere::test
