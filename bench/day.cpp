// What a day of the programs that keep running costs, with no years behind it and with many:
// quillmere_day PROGRAM CLOCK. The day passes on a clock of its own (virtual_clock.cpp), with eight sessions,
// their pauses and reviews, and ten questions, all made by other processes.
#include "child_process.hpp"
#include "generated_state.hpp"
#include "quartiles.hpp"
#include "temporary_place.hpp"

#include <quillmere/store/state_store.hpp>

#include <pty.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace quillmere::bench {
namespace {

namespace fs = std::filesystem;

constexpr int rounds = 3;
constexpr double hour = 3600;

/// The commands of the day, for the preloaded clock.
class Plan {
public:
    Plan(const fs::path& file, std::string program) : file_(file), program_(std::move(program))
    {
        for (const double begin : {9 * hour, 14 * hour}) {
            addBlock(begin);
        }
        file_ << 24 * hour << '\n';
    }

private:
    void add(double seconds, const std::string& words)
    {
        file_ << seconds << ' ' << program_ << ' ' << words << '\n';
    }

    void addBlock(double time)
    {
        constexpr int sessions = 4;
        add(time, "plan --outcome 'An outline' --cycles 4 --start");
        for (int session = 1; session <= sessions; ++session) {
            add(time += 60, "focus --outcome 'A page' --energy 4 --morale 3");
            add(time += 300, "ask 'Which one?'");
            add(time += 300, "pause");
            add(time += 120, "resume");
            add(time += 1'300,
                "review --completion yes --result 'It is done'" +
                    std::string(session < sessions
                                    ? " --next-outcome 'A page' --next-energy 4 --next-morale 3"
                                    : " --finish"));
            add(time += 60, "answer 1 'This one'");
            if (session < sessions) {
                add(time += 300, "break end");
            }
        }
        add(time += 60, "reflect --lessons 'Close the door'");
    }

    std::ofstream file_;
    std::string program_;
};

/// The files of a person with so many sessions behind them.
class Files {
public:
    Files(std::string program, std::string clock, std::size_t sessions)
        : program_(std::move(program)), clock_(std::move(clock)), place_(fs::current_path())
    {
        constexpr std::size_t sessionsADay = 8;
        inChildProcess([&](int) {
            StateStore(place_.path() / "sample", StateStore::renameReplacing)
                .save(generatedYears(sessions / sessionsADay));
        });
    }

    struct Cost {
        double processorSeconds = 0;
        long waits = 0;
    };

    /// Of a day of a command that keeps running, on a terminal.
    Cost costOf(const std::vector<std::string>& words) const
    {
        const fs::path files = place_.path() / "files";
        const fs::path cost = place_.path() / "cost";
        fs::remove_all(files);
        fs::remove_all(place_.path() / "kept");
        fs::copy(place_.path() / "sample", files);
        Plan(place_.path() / "day", program_ + " --directory " + files.string());
        int terminal = -1;
        winsize size{.ws_row = 40, .ws_col = 120, .ws_xpixel = 0, .ws_ypixel = 0};
        const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
        if (child == 0) {
            ::setenv("XDG_STATE_HOME", (place_.path() / "kept").c_str(), 1);
            ::setenv("TERM", "xterm-256color", 1);
            ::setenv("QUILLMERE_DAY", (place_.path() / "day").c_str(), 1);
            ::setenv("QUILLMERE_DAY_COST", cost.c_str(), 1);
            ::setenv("LD_PRELOAD", clock_.c_str(), 1);
            run(files, words);
        }
        drain(terminal);
        int status = 0;
        ::waitpid(child, &status, 0);
        Cost result;
        std::string line;
        std::getline(std::ifstream(cost) >> std::ws, line);
        if (!(std::istringstream(line) >> result.processorSeconds >> result.waits)) {
            throw std::runtime_error("a day has failed: " + line);
        }
        return result;
    }

private:
    [[noreturn]] void run(const fs::path& files, const std::vector<std::string>& words) const
    {
        std::vector<std::string> copies = {program_, "--directory", files};
        copies.insert(copies.end(), words.begin(), words.end());
        std::vector<char*> pointers;
        for (std::string& word : copies) {
            pointers.push_back(word.data());
        }
        pointers.push_back(nullptr);
        ::execv(pointers.front(), pointers.data());
        ::_exit(127);
    }

    static void drain(int terminal)
    {
        std::array<char, 1 << 16> bytes;
        while (::read(terminal, bytes.data(), bytes.size()) > 0) {
        }
        ::close(terminal);
    }

    std::string program_;
    std::string clock_;
    TemporaryPlace place_;
};

void run(const std::string& program, const std::string& clock)
{
    std::printf(
        "| A day of | processor time at 24,000 over at 0 | quartiles | at most | | at 24,000, s | wake-ups "
        "|\n"
        "|---|---|---|---|---|---|---|\n");
    const Files none(program, clock, 0);
    const Files many(program, clock, 24'000);
    const std::vector<std::vector<std::string>> commands = {
        {"ui"}, {"watch"}, {"bar", "--follow", "--format", "tmux"}};
    for (const std::vector<std::string>& words : commands) {
        std::vector<double> ratios;
        Files::Cost cost;
        for (int round = 0; round < rounds; ++round) {
            const double without = none.costOf(words).processorSeconds;
            cost = many.costOf(words);
            ratios.push_back(cost.processorSeconds / without);
        }
        constexpr double bound = 1.2;
        const Quartiles ratio = quartilesOf(ratios);
        std::printf("| %s | %.2f | %.2f to %.2f | %.1f | %s | %.2f | %ld |\n", words.front().c_str(),
                    ratio.median, ratio.lower, ratio.upper, bound, ratio.median <= bound ? "met" : "MISSED",
                    cost.processorSeconds, cost.waits);
        std::fflush(stdout);
    }
}

}  // namespace
}  // namespace quillmere::bench

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fputs("usage: quillmere_day PROGRAM CLOCK\n", stderr);
        return 2;
    }
    try {
        quillmere::bench::run(arguments[1], arguments[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
