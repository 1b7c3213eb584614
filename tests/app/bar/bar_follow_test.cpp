// `quillmere bar --follow`: the real program, on the wall clock.
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <quillmere/widget/design.hpp>
#include <regex>

#include "bar/running_process.hpp"
#include "hostile_texts.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* nothingToDo = "Idle \u00B7 No active block";

Instant present() { return Instant(static_cast<double>(::time(nullptr))); }

/// A summary with a running countdown that ends in so many seconds.
WidgetSnapshot countdown(double seconds)
{
    WidgetSnapshot summary = summaryWith("Chapter");
    summary.countdown = WidgetCountdown{.endsAt = present() + seconds,
                                        .startedAt = present() - 100,
                                        .isPaused = false,
                                        .frozenRemainingSeconds = static_cast<std::int64_t>(seconds)};
    return summary;
}

WidgetSnapshot paused(std::int64_t seconds)
{
    WidgetSnapshot summary = countdown(0);
    summary.countdown->isPaused = true;
    summary.countdown->frozenRemainingSeconds = seconds;
    return summary;
}

class Follow : public testing::Test {
protected:
    TemporaryDirectory directory;

    void has(const WidgetSnapshot& summary) const { WidgetSnapshotStore(directory.path()).save(summary); }

    fs::path file() const { return directory.path() / WidgetSnapshotStore::fileName; }

    Words bar(const Words& words = {}) const
    {
        Words all = {"--directory", directory.path().string()};
        all.insert(all.end(), words.begin(), words.end());
        return followingBar(all);
    }
};

TEST_F(Follow, printsALineAtOnceAndAtEachChangeOfTheFile)
{
    RunningProcess bar(this->bar());
    EXPECT_EQ(bar.line(), nothingToDo);
    has(paused(60));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 01:00 paused");
    has(paused(59));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:59 paused");
    fs::remove(file());
    EXPECT_EQ(bar.line(), nothingToDo);
    EXPECT_FALSE(bar.hasMore());
}

TEST_F(Follow, printsALineAtAChangeThatTheLineDoesNotShow)
{
    WidgetSnapshot summary = paused(60);
    has(summary);
    RunningProcess bar(this->bar());
    const std::string first = bar.line();
    summary.firstAction = "Another";
    has(summary);
    EXPECT_EQ(bar.line(), first);
}

TEST_F(Follow, printsNothingWhenAnotherFileChanges)
{
    has(paused(60));
    RunningProcess bar(this->bar());
    bar.line();
    for (int change = 0; change < 10; ++change) {
        const long before = bar.sleeps();
        writeText(directory.path() / "state.json", "{}");
        bar.awaitSleepAfter(before);
    }
    // A line because of the other file would come before this one.
    has(paused(59));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:59 paused");
}

TEST_F(Follow, countsDownByItself)
{
    has(countdown(1'000));
    RunningProcess bar(this->bar({"--format", "json"}));
    const std::int64_t first = std::stoll(jsonAt("/remaining_seconds", bar.line()));
    EXPECT_LT(std::stoll(jsonAt("/remaining_seconds", bar.line())), first);
}

TEST_F(Follow, exitsWith0AtASignal)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        for (const WidgetSnapshot& summary : {paused(60), countdown(1'000)}) {
            has(summary);
            RunningProcess bar(this->bar());
            bar.line();
            bar.send(signal);
            EXPECT_EQ(bar.wait(), 0);
        }
    }
}

TEST_F(Follow, exitsWith0WhenItsReaderIsGone)
{
    // Without a change, this one would write nothing for half an hour.
    has(paused(60));
    RunningProcess sleeping(bar());
    sleeping.line();
    sleeping.stopReading();
    EXPECT_EQ(sleeping.wait(), 0);

    has(countdown(1'000));
    RunningProcess counting(bar());
    counting.line();
    counting.stopReading();
    EXPECT_EQ(counting.wait(), 0);

    RunningProcess beginning(bar(), /*pipeIsFull=*/true);
    beginning.stopReading();
    EXPECT_EQ(beginning.wait(), 0);
}

TEST_F(Follow, exitsWith0AtASignalWhileItsReaderIsSlow)
{
    has(countdown(1'000));
    RunningProcess bar(this->bar(), /*pipeIsFull=*/true);
    bar.awaitHoldingBack(SIGTERM);
    bar.send(SIGTERM);
    EXPECT_EQ(bar.wait(), 0);
}

TEST_F(Follow, givesASlowReaderNoOutdatedLine)
{
    has(paused(60));
    RunningProcess bar(this->bar(), /*pipeIsFull=*/true);
    bar.awaitHoldingBack(SIGTERM);
    bar.awaitSleep();
    has(paused(59));
    std::string line;
    while (line.empty() && !HasFailure()) {
        line = bar.line();
    }
    EXPECT_EQ(line.substr(0, 18), "Focus 00:59 paused");
    EXPECT_FALSE(bar.hasMore());
}

TEST_F(Follow, printsThatTheFileCannotBeReadAndGoesOn)
{
    has(paused(60));
    RunningProcess bar(this->bar());
    bar.line();
    writeText(file(), "{}");
    // Between two steps of writing, the file was empty, which gives the same line.
    EXPECT_EQ(bar.line(), "The widget's summary cannot be read.");
    has(paused(59));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:59 paused");
}

TEST_F(Follow, beginsWithAFileThatCannotBeRead)
{
    writeText(file(), "{}");
    RunningProcess bar(this->bar({"--format", "waybar"}));
    EXPECT_EQ(
        bar.line(),
        R"({"text":"The widget&#39;s summary cannot be read.","alt":"unreadable",)"
        R"("tooltip":"The widget&#39;s summary cannot be read.","class":["unreadable"],"percentage":0})");
    has(paused(59));
    EXPECT_EQ(jsonAt("/alt", bar.line()), R"("focusing")");
}

TEST_F(Follow, findsTheContainerThatIsMadeLater)
{
    const EnvironmentVariable data("XDG_DATA_HOME", (directory.path() / "data").string());
    RunningProcess bar(followingBar({}));
    EXPECT_EQ(bar.line(), nothingToDo);
    const Person person;
    EXPECT_EQ(person.runs({"plan", "--outcome", "Chapter", "--start"}).code, ExitCode::done);
    EXPECT_EQ(bar.line(), "Planning \u00B7 Plan the next session \u00B7 Chapter");
    bar.send(SIGTERM);
    EXPECT_EQ(bar.wait(), 0);
}

TEST_F(Follow, writesNoFileAndNeedsNoLock)
{
    has(countdown(1'000));
    const int descriptor = ::open(directory.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX | LOCK_NB), 0);
    const auto before = pictureOf(directory.path());
    RunningProcess bar(this->bar());
    bar.line();
    bar.line();
    bar.send(SIGTERM);
    EXPECT_EQ(bar.wait(), 0);
    EXPECT_EQ(pictureOf(directory.path()), before);
    ::close(descriptor);
}

bool canTrace() { return std::system("strace -o /dev/null true 2>/dev/null") == 0; }

/// The number of matches of `pattern` in a text.
std::ptrdiff_t occurrences(const std::string& text, const std::string& pattern)
{
    const std::regex expression(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator());
}

TEST_F(Follow, exitsWith0WhenItsReaderIsGoneAtTheMomentOfWriting)
{
    if (!canTrace()) {
        GTEST_SKIP() << "strace is not installed, or may not trace here";
    }
    const EnvironmentVariable sanitizer("ASAN_OPTIONS", "detect_leaks=0");
    const TemporaryDirectory beside;
    const std::string log = (beside.path() / "log").string();
    const auto traced = [&](const std::string& expression) {
        Words words = {"strace", "-o", log, "-e", expression};
        const Words followed = bar();
        words.insert(words.end(), followed.begin(), followed.end());
        return words;
    };
    RunningProcess undisturbed(traced("trace=write"));
    undisturbed.line();
    undisturbed.stopReading();
    EXPECT_EQ(undisturbed.wait(), 0);
    // Sanitizers write to their own pipes before.
    const std::string calls = textOf(log);
    const auto first = occurrences(calls.substr(0, calls.find("write(1,")), R"(write\()") + 1;
    // As the system does it: sends the signal and fails the call.
    RunningProcess disturbed(traced("inject=write:error=EPIPE:signal=PIPE:when=" + std::to_string(first)));
    EXPECT_EQ(disturbed.wait(), 0);
}

TEST_F(Follow, sleepsWhileNothingRunsAndReadsTheFileOnlyWhenItChanges)
{
    if (!canTrace()) {
        GTEST_SKIP() << "strace is not installed, or may not trace here";
    }
    const EnvironmentVariable sanitizer("ASAN_OPTIONS", "detect_leaks=0");
    has(paused(60));
    const TemporaryDirectory beside;
    const std::string log = (beside.path() / "log").string();
    Words words = {"strace", "-o", log, "-e", "trace=ppoll,openat"};
    for (const std::string& word : bar()) {
        words.push_back(word);
    }
    RunningProcess bar(words);
    bar.line();
    has(paused(59));
    bar.line();
    bar.stopReading();
    EXPECT_EQ(bar.wait(), 0);
    const std::string calls = textOf(log);
    // A wait for a change has a limit of half an hour; a wait for the reader has none.
    const auto sleeping = occurrences(calls, R"(ppoll\(.*tv_sec=(1800|1799))");
    EXPECT_GE(sleeping, 1) << calls;
    EXPECT_EQ(occurrences(calls, R"(ppoll\()"), sleeping + occurrences(calls, R"(ppoll\(.*, 3, NULL)"))
        << calls;
    // The file is opened at the beginning and after each change in the directory. Saving makes three changes:
    // the temporary file is made, closed and renamed. The bar may see them separately.
    const auto readings = occurrences(calls, R"(openat\(.*widget-snapshot\.json)");
    EXPECT_GE(readings, 2) << calls;
    EXPECT_LE(readings, 4) << calls;
}

}  // namespace
}  // namespace quillmere::test
