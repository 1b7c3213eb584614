#include "proofs/system_calls/tracing.hpp"

#include <cctype>
#include <fstream>
#include <map>
#include <optional>
#include <utility>

#include "support/process.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

/// Some machines lack some of these calls; the question mark makes strace ignore unknown ones.
constexpr const char* tracedNames =
    "trace=?mkdir,?mkdirat,?chmod,?fchmodat,?fchmodat2,?stat,?lstat,?fstat,?newfstatat,?fstatat64,?statx,?"
    "open,"
    "?openat,read,?pread64,write,?copy_file_range,fsync,close,?rename,?renameat,?renameat2,?link,?linkat,?"
    "unlink,?unlinkat,flock";

ProcessEnding runSilently(std::vector<std::string> words,
                          const std::map<std::string, std::optional<std::string>>& more = {})
{
    ProcessOptions options{.words = std::move(words), .output = Channel::null(), .environment = more};
    // The leak check at exit needs ptrace, which strace already uses.
    options.environment["ASAN_OPTIONS"] = "detect_leaks=0";
    return run(options);
}

/// The name of the call on a line of the log, after the process number; empty if the line has none.
std::string nameOn(const std::string& line)
{
    std::size_t begin = 0;
    while (begin < line.size() &&
           (std::isdigit(static_cast<unsigned char>(line[begin])) || line[begin] == ' ')) {
        ++begin;
    }
    const std::size_t end = line.find('(', begin);
    const std::string name = end == std::string::npos ? "" : line.substr(begin, end - begin);
    return name.find_first_of(" +-<") == std::string::npos ? name : "";
}

std::vector<TracedCall> callsIn(const std::filesystem::path& log, const std::string& concerned)
{
    std::vector<TracedCall> calls;
    std::map<std::string, std::size_t> counts;
    std::ifstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        const std::string name = nameOn(line);
        if (!name.empty()) {
            const std::size_t ordinal = ++counts[name];
            if (line.find(concerned) != std::string::npos) {
                calls.push_back({.name = name, .ordinal = ordinal, .text = line});
            }
        }
    }
    return calls;
}

}  // namespace

bool canTrace()
{
    static const bool can = succeeds({"strace", "-o", "/dev/null", "true"});
    return can;
}

TracedRun traced(const std::filesystem::path& directory, const std::vector<std::string>& arguments,
                 const std::filesystem::path& concerned, const std::string& injection,
                 const std::filesystem::path& stateHome)
{
    const TemporaryDirectory place;
    const TemporaryDirectory newHome;
    const std::filesystem::path& home = stateHome.empty() ? newHome.path() : stateHome;
    const std::filesystem::path log = place.path() / "log";
    std::vector<std::string> words = {"strace", "-f", "-y", "-o", log.string(), "-e", tracedNames};
    if (!injection.empty()) {
        words.insert(words.end(), {"-e", "inject=" + injection});
    }
    words.insert(words.end(), {QUILLMERE_PROGRAM, "--directory", directory.string()});
    words.insert(words.end(), arguments.begin(), arguments.end());
    const ProcessEnding ending = runSilently(std::move(words), {{"XDG_STATE_HOME", home.string()}});
    return {.code = ending.code, .calls = callsIn(log, concerned.string()), .err = ending.err};
}

}  // namespace quillmere::test
