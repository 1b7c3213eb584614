// Measures the processor time of `quillmere bar` with little history, with much history and with long texts,
// and compares it with other programs for status bars: quillmere_bar_time PROGRAM [OTHER ARGUMENT…].
//
// The commands run in turn, each run in a new process, measured by getrusage(2). Starting the program, which
// is mostly work of the dynamic linker and the kernel, is the greater part of the time.
#include "generated_state.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

extern char** environ;  // NOLINT(readability-redundant-declaration): not declared on every system

namespace quillmere::bench {
namespace {

namespace fs = std::filesystem;

constexpr int rounds = 200;
constexpr std::size_t muchHistory = 10'000;

/// A command line, and the milliseconds of each of its runs.
struct Command {
    std::string name;
    std::vector<std::string> words;
    std::vector<double> times;
};

/// A temporary directory for the measurement.
class Place {
public:
    Place()
    {
        std::string path = fs::temp_directory_path() / "quillmere-bar-time-XXXXXX";
        if (!::mkdtemp(path.data())) {
            throw std::system_error(errno, std::generic_category(), "mkdtemp");
        }
        path_ = path;
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() { fs::remove_all(path_); }

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

double milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

/// Runs a command and returns its processor time in user and system mode.
double timeOfRun(std::vector<std::string> words)
{
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int error = ::posix_spawnp(&process, pointers.front(), &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), words.front());
    }
    int status = 0;
    rusage usage{};
    ::wait4(process, &status, 0, &usage);
    if (status != 0) {
        throw std::runtime_error(words.front() + " has failed");
    }
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

void saveHistory(const fs::path& directory)
{
    fs::create_directory(directory);
    const QuillmereState state = generatedState(muchHistory);
    StateStore(directory, StateStore::renameReplacing).save(state);
    WidgetSnapshotStore(directory).save(WidgetSnapshot::make(state, state.updatedAt));
    std::printf("%zu finished blocks: state.json has %.0f MB\n\n", muchHistory,
                static_cast<double>(fs::file_size(directory / "state.json")) / 1e6);
}

/// Saves a summary with texts of `bytes` bytes in every text field.
void saveLongTexts(const fs::path& directory, std::size_t bytes)
{
    std::string text;
    while (text.size() < bytes) {
        text += "A word and another, ";
    }
    WidgetSnapshot summary = WidgetSnapshot::placeholder(Instant(0));
    summary.intendedOutcome = text;
    summary.firstAction = text;
    summary.openQuestions = {text, text, text};
    summary.openQuestionCount = 3;
    WidgetSnapshotStore(directory).save(summary);
}

void print(Command& command)
{
    std::sort(command.times.begin(), command.times.end());
    std::printf("%-28s %8.2f %8.2f %8.2f\n", command.name.c_str(), command.times.front(),
                command.times[command.times.size() / 2], command.times.back());
}

void run(const std::string& program, const std::vector<std::string>& other)
{
    const Place place;
    const fs::path empty = place.path() / "empty";
    const fs::path full = place.path() / "full";
    const fs::path longTexts = place.path() / "long";
    const fs::path longestTexts = place.path() / "longest";
    fs::create_directory(empty);
    saveHistory(full);
    saveLongTexts(longTexts, 100'000);
    saveLongTexts(longestTexts, 1'000'000);
    const auto bar = [&](const fs::path& directory) -> std::vector<std::string> {
        return {program, "--directory", directory.string(), "bar", "--format", "waybar"};
    };
    std::vector<Command> commands = {{"quillmere bar, no history", bar(empty), {}},
                                     {"quillmere bar, much history", bar(full), {}},
                                     {"quillmere bar, 5 x 100 kB", bar(longTexts), {}},
                                     {"quillmere bar, 5 x 1 MB", bar(longestTexts), {}}};
    if (!other.empty()) {
        commands.push_back({other.front(), other, {}});
    }
    for (int round = 0; round < rounds; ++round) {
        for (Command& command : commands) {
            command.times.push_back(timeOfRun(command.words));
        }
    }
    std::printf("%-28s %8s %8s %8s   ms of processor time, %d runs each\n", "", "best", "median", "worst",
                rounds);
    for (Command& command : commands) {
        print(command);
    }
}

}  // namespace
}  // namespace quillmere::bench

int main(int count, char** arguments)
{
    if (count < 2) {
        std::fputs("usage: quillmere_bar_time PROGRAM [OTHER ARGUMENT...]\n", stderr);
        return 2;
    }
    try {
        quillmere::bench::run(arguments[1], {arguments + 2, arguments + count});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
