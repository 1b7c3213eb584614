// What a day costs, with no years behind it and with many: quillmere_years PROGRAM [PICTURE].
//
// Every figure is of a whole process. Processes that are compared run one after the other, again and again,
// and a ratio is the median of the ratios of these pairs: a disturbance of the machine hits both or one pair
// only.
#include "child_process.hpp"
#include "generated_state.hpp"
#include "measured_process.hpp"
#include "picture_of_years.hpp"
#include "quartiles.hpp"
#include "temporary_place.hpp"

#include <quillmere/records/json/date_text.hpp>
#include <quillmere/store/state_store.hpp>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <thread>

namespace quillmere::bench {
namespace {

namespace fs = std::filesystem;

constexpr int rounds = 11;
constexpr std::size_t sessionsADay = 8;

// How a block begins, and its first session.
const std::vector<std::string> planning = {"plan", "--outcome", "An outline", "--cycles", "2", "--start"};
const std::vector<std::string> focusing = {"focus", "--outcome", "A page", "--energy", "4", "--morale", "3"};

/// The same history for this program and for timewarrior.
class Years {
public:
    Years(std::string program, std::size_t sessions)
        : program_(std::move(program)), place_(fs::current_path()), sessions_(sessions)
    {
        // In a process of its own, since a child is said to need at least the memory of its parent.
        inChildProcess([&](int) {
            const QuillmereState state = generatedYears(sessions / sessionsADay);
            StateStore(files(), StateStore::renameReplacing).save(state);
            recordForTimewarrior(state);
        });
        run(planning);
        run(focusing);
        rival({"start", "outline"});
    }

    std::size_t sessions() const { return sessions_; }
    fs::path state() const { return files() / "state.json"; }

    Cost run(std::vector<std::string> words) const
    {
        ::setenv("XDG_STATE_HOME", (place_.path() / "kept").c_str(), 1);
        words.insert(words.begin(), {program_, "--directory", files().string()});
        return costOf(words);
    }

    Cost rival(std::vector<std::string> words) const
    {
        ::setenv("TIMEWARRIORDB", (place_.path() / "rival").c_str(), 1);
        words.insert(words.begin(), "timew");
        return costOf(words);
    }

    /// Copies the state, syncs the copy and renames it: the least that a change can cost.
    Cost copy() const;

private:
    fs::path files() const { return place_.path() / "files"; }

    void recordForTimewarrior(const QuillmereState& state) const
    {
        const fs::path data = place_.path() / "rival" / "data";
        fs::create_directories(data);
        std::ofstream(place_.path() / "rival" / "timewarrior.cfg");
        std::map<std::string, std::string> months;
        for (auto block = state.blockHistory.rbegin(); block != state.blockHistory.rend(); ++block) {
            for (const WorkSession& session : block->sessions) {
                const std::string begin = json::dateText(session.startedAt);
                months[begin.substr(0, 7)] += "inc " + compact(begin) + " - " +
                                              compact(json::dateText(*session.endedAt)) + " # outline\n";
            }
        }
        for (const auto& [month, lines] : months) {
            std::ofstream(data / (month + ".data")) << lines;
        }
    }

    /// "20260102T030405Z"
    static std::string compact(std::string instant)
    {
        std::erase_if(instant, [](char c) { return c == '-' || c == ':'; });
        return instant;
    }

    std::string program_;
    TemporaryPlace place_;
    std::size_t sessions_;
};

Cost Years::copy() const
{
    const fs::path copy = place_.path() / "copy";
    const auto begin = std::chrono::steady_clock::now();
    const int from = ::open(state().c_str(), O_RDONLY | O_CLOEXEC);
    const int to = ::open(copy.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    while (::copy_file_range(from, nullptr, to, nullptr, 1 << 30, 0) > 0) {
    }
    const int directory = ::open(place_.path().c_str(), O_RDONLY | O_CLOEXEC);
    const bool isSynced = ::fsync(to) == 0 &&
                          ::rename(copy.c_str(), (place_.path() / "copied").c_str()) == 0 &&
                          ::fsync(directory) == 0;
    for (const int descriptor : {from, to, directory}) {
        ::close(descriptor);
    }
    if (!isSynced) {
        throw std::system_error(errno, std::generic_category(), "copy");
    }
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    return {.wallSeconds = wall.count(), .processorSeconds = 0, .peakBytes = 0};
}

using Figure = double Cost::*;

/// A row of the table: work, and what it is compared with.
struct Work {
    const char* name;
    const char* rivalName;
    std::function<Cost(const Years&)> run;
    std::function<Cost(const Years&)> compared;
    Figure figure;
    double bound;
};

std::function<Cost(const Years&)> ours(std::vector<std::string> words)
{
    return [words](const Years& years) { return years.run(words); };
}

std::function<Cost(const Years&)> timew(std::vector<std::string> words)
{
    return [words](const Years& years) { return years.rival(words); };
}

Cost copied(const Years& years) { return years.copy(); }

/// In an order in which each can be done; the last one leads back to the first.
std::vector<Work> works()
{
    constexpr Figure wall = &Cost::wallSeconds;
    const char* const copy = "copy, sync, rename";
    return {
        {"status", "timew", ours({"status"}), timew({}), wall, 1.5},
        {"bar --format tmux", "timew get dom.active.duration", ours({"bar", "--format", "tmux"}),
         timew({"get", "dom.active.duration"}), wall, 1.1},
        {"pause", copy, ours({"pause"}), copied, wall, 2.0},
        {"resume", copy, ours({"resume"}), copied, wall, 2.0},
        {"ask", copy, ours({"ask", "Which one?"}), copied, wall, 2.0},
        {"answer", copy, ours({"answer", "1", "This one"}), copied, wall, 2.0},
        {"end", copy, ours({"end"}), copied, wall, 2.0},
        {"review", copy, ours({"review", "--finish", "--completion", "yes", "--result", "It is done"}),
         copied, wall, 2.0},
        {"reflect", copy, ours({"reflect", "--lessons", "Close the door"}), copied, wall, 2.2},
        {"plan", copy, ours(planning), copied, wall, 2.0},
        {"focus", copy, ours(focusing), copied, wall, 2.0},
    };
}

/// Work whose cost is that with years over that without.
struct Look {
    const char* name;
    std::vector<std::string> words;
    double bound;
};

std::vector<Look> looks()
{
    return {{"status", {"status"}, 1.2},
            {"bar", {"bar"}, 1.2},
            {"questions", {"questions"}, 1.5},
            {"agent", {"agent"}, 1.5}};
}

void print(const std::string& name, const char* over, std::size_t sessions, const std::vector<double>& ratios,
           double bound)
{
    const Quartiles quartiles = quartilesOf(ratios);
    std::printf("| %s over %s | %zu | %.2f | %.2f to %.2f | %.1f | %s |\n", name.c_str(), over, sessions,
                quartiles.median, quartiles.lower, quartiles.upper, bound,
                quartiles.median <= bound ? "met" : "MISSED");
}

void printChanges(const Years& years)
{
    std::map<const char*, std::vector<double>> ratios;
    std::map<const char*, double> peaks;
    const std::vector<Work> all = works();
    for (int round = 0; round < rounds; ++round) {
        for (const Work& work : all) {
            const Cost cost = work.run(years);
            ratios[work.name].push_back(cost.*work.figure / work.compared(years).*work.figure);
            peaks[work.name] = std::max(peaks[work.name], cost.peakBytes);
        }
    }
    for (const Work& work : all) {
        print(work.name, work.rivalName, years.sessions(), ratios[work.name], work.bound);
    }
    double peak = 0;
    for (const auto& [name, bytes] : peaks) {
        peak = std::max(peak, bytes);
    }
    std::printf("| peak memory of these, MB | %zu | %.1f | | | |\n", years.sessions(), peak / 1e6);
}

void printLooks(const Years& without, const Years& with)
{
    for (const Look& look : looks()) {
        std::vector<double> ratios;
        for (int round = 0; round < 2 * rounds; ++round) {
            const double base = without.run(look.words).processorSeconds;
            ratios.push_back(with.run(look.words).processorSeconds / base);
        }
        print("processor time of " + std::string(look.name), "the same at 0", with.sessions(), ratios,
              look.bound);
    }
}

double millisecondsOf(const std::function<Cost()>& run)
{
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(run().wallSeconds * 1e3);
    }
    return quartilesOf(times).median;
}

std::vector<Line> linesOf(const std::string& program)
{
    std::vector<Line> lines = {{"quillmere status", {}, true},   {"quillmere pause, resume", {}, true},
                               {"quillmere report", {}, true},   {"timew", {}, false},
                               {"timew stop, start", {}, false}, {"timew summary :all", {}, false}};
    for (const std::size_t sessions : {24, 240, 2'400, 24'000}) {
        const Years years(program, sessions);
        bool isPaused = false;
        const double times[] = {
            millisecondsOf([&] { return years.run({"status"}); }),
            2 * millisecondsOf([&] {
                isPaused = !isPaused;
                return years.run({isPaused ? "pause" : "resume"});
            }),
            millisecondsOf([&] { return years.run({"report"}); }),
            millisecondsOf([&] { return years.rival({}); }),
            millisecondsOf([&] {
                // It records no interval that begins and ends in one second.
                std::this_thread::sleep_for(std::chrono::seconds(1));
                Cost cost = years.rival({"stop"});
                std::this_thread::sleep_for(std::chrono::seconds(1));
                cost.wallSeconds += years.rival({"start", "outline"}).wallSeconds;
                return cost;
            }),
            millisecondsOf([&] {
                return years.rival({"summary", ":all"});
            }),
        };
        for (std::size_t index = 0; index < lines.size(); ++index) {
            lines[index].points.push_back({static_cast<double>(sessions), times[index]});
        }
    }
    return lines;
}

void run(const std::string& program, const std::string& picture)
{
    std::printf("| Work | sessions | ratio | quartiles | at most | |\n|---|---|---|---|---|---|\n");
    const Years none(program, 0);
    const Years some(program, 2'000);
    const Years many(program, 24'000);
    for (const Years* const years : {&none, &some, &many}) {
        printChanges(*years);
    }
    printLooks(none, some);
    printLooks(none, many);
    std::printf("\nstate.json after 24,000 sessions and ten answered questions a day: %.0f MB\n",
                static_cast<double>(fs::file_size(many.state())) / 1e6);
    if (!picture.empty()) {
        std::ofstream(picture) << pictureOf(linesOf(program));
    }
}

}  // namespace
}  // namespace quillmere::bench

int main(int count, char** arguments)
{
    if (count < 2) {
        std::fputs("usage: quillmere_years PROGRAM [PICTURE]\n", stderr);
        return 2;
    }
    try {
        quillmere::bench::run(arguments[1], count > 2 ? arguments[2] : "");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
