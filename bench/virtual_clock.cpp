// To be preloaded (ld.so(8)): a program on a clock of its own, on which a day passes in seconds. Where the
// program would wait and nothing is ready, the clock goes on by as long as it would have waited. At set times
// other commands run, on the same clock. The environment says how:
//
//   QUILLMERE_CLOCK_AHEAD  how far the clock is ahead of the true one, in seconds
//   QUILLMERE_DAY          a file with a line "seconds command" for each command of the day, in order; the
//                          last line has seconds alone and ends the program
//   QUILLMERE_DAY_COST     the file for its processor seconds and its number of waits
#include <dlfcn.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using Nanoseconds = long long;
constexpr Nanoseconds second = 1'000'000'000;

template <class Function>
Function* original(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

std::string variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// The program's day.
class Day {
public:
    Nanoseconds ahead() const { return ahead_; }

    void countWait() { ++waits_; }

    /// Lets the clock go on; not beyond the next command, which then runs.
    void pass(Nanoseconds time)
    {
        const Nanoseconds before = ahead_;
        ahead_ = isPlanned_ ? std::min(ahead_ + time, next_) : ahead_ + time;
        if (isPlanned_ && ahead_ == next_) {
            runNext();
        } else if (time > 0 && ahead_ == before) {
            ++ahead_;
        }
    }

private:
    void runNext()
    {
        if (command_.empty()) {
            end();
        }
        const std::string prefix =
            "QUILLMERE_DAY= QUILLMERE_CLOCK_AHEAD=" + std::to_string(static_cast<double>(ahead_) / second) +
            " exec ";
        const pid_t child = ::fork();
        if (child == 0) {
            ::execl("/bin/sh", "sh", "-c", (prefix + command_ + " </dev/null >/dev/null").c_str(), nullptr);
            ::_exit(127);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        if (status != 0) {
            fail(command_);
        }
        takeNext();
    }

    void takeNext()
    {
        double seconds = 0;
        isPlanned_ = static_cast<bool>(plan_ >> seconds);
        std::getline(plan_, command_);
        next_ = static_cast<Nanoseconds>(std::llround(seconds * second));
    }

    [[noreturn]] void end() const
    {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
        };
        std::ofstream(variable("QUILLMERE_DAY_COST"))
            << seconds(usage.ru_utime) + seconds(usage.ru_stime) << ' ' << waits_ << '\n';
        ::_exit(0);
    }

    [[noreturn]] static void fail(const std::string& command)
    {
        std::ofstream(variable("QUILLMERE_DAY_COST")) << "failed:" << command << '\n';
        ::_exit(1);
    }

    Nanoseconds ahead_ =
        static_cast<Nanoseconds>(std::llround(std::atof(variable("QUILLMERE_CLOCK_AHEAD").c_str()) * second));
    std::ifstream plan_{variable("QUILLMERE_DAY")};
    std::string command_;
    Nanoseconds next_ = 0;
    bool isPlanned_ = (takeNext(), isPlanned_);
    long waits_ = 0;
};

Day& day()
{
    static Day today;
    return today;
}

}  // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* result) noexcept
{
    static const auto real = original<int(clockid_t, timespec*)>("clock_gettime");
    const int code = real(clock, result);
    if (code == 0 && clock != CLOCK_PROCESS_CPUTIME_ID && clock != CLOCK_THREAD_CPUTIME_ID) {
        const Nanoseconds time = result->tv_nsec + day().ahead();
        result->tv_sec += time / second;
        result->tv_nsec = time % second;
    }
    return code;
}

time_t time(time_t* result) noexcept
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (result) {
        *result = now.tv_sec;
    }
    return now.tv_sec;
}

int ppoll(pollfd* sources, nfds_t count, const timespec* limit, const sigset_t* mask)
{
    static const auto real = original<int(pollfd*, nfds_t, const timespec*, const sigset_t*)>("ppoll");
    constexpr timespec none{};
    Nanoseconds left = limit ? limit->tv_sec * second + limit->tv_nsec : -1;
    if (left > 0) {
        day().countWait();
    }
    for (;;) {
        const int ready = real(sources, count, left < 0 ? nullptr : &none, mask);
        if (ready != 0 || left <= 0) {
            return ready;
        }
        const Nanoseconds before = day().ahead();
        day().pass(left);
        left -= day().ahead() - before;
    }
}

}  // extern "C"
