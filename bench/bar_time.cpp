// Measures the processor time of `quillmere bar` with little history, with much history and with long texts,
// and compares it with other programs for status bars: quillmere_bar_time PROGRAM [OTHER ARGUMENT…].
//
// The commands run in turn, each run in a new process, measured by getrusage(2). Starting the program, which
// is mostly work of the dynamic linker and the kernel, is the greater part of the time.
#include "generated_state.hpp"
#include "measured_process.hpp"
#include "temporary_place.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

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
    const TemporaryPlace place(fs::temp_directory_path());
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
            command.times.push_back(costOf(command.words).processorSeconds * 1e3);
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
