// `quillmere bar --follow`: the real program, on the wall clock.
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <time.h>

#include <filesystem>
#include <iterator>
#include <regex>
#include <string>

#include "bar/process_status.hpp"
#include "hostile_texts.hpp"
#include "program_testing.hpp"
#include "real_program.hpp"
#include "support/process.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* nothingToDo = "Idle \u00B7 No active block";

Instant present() { return Instant(static_cast<double>(::time(nullptr))); }

/// A summary with a countdown that ends `seconds` from now.
WidgetSnapshot countdown(double seconds)
{
    WidgetSnapshot summary = summaryWith("Chapter");
    summary.updatedAt = present();
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

    /// The words that start `quillmere bar --follow` in this directory.
    Words followWords(const Words& options = {}) const
    {
        Words words = {QUILLMERE_PROGRAM, "bar", "--follow", "--directory", directory.path().string()};
        words.insert(words.end(), options.begin(), options.end());
        return words;
    }
    /// Starts it; the test reads its lines as a bar does.
    Process follow(const Words& options = {}) const
    {
        return Process({.words = followWords(options), .output = Channel::pipe()});
    }
    /// Starts it with an output that nobody reads and that has no room for a line.
    Process followWithoutReader() const
    {
        return Process({.words = followWords(), .output = Channel::fullPipe()});
    }
    /// Starts it under strace, with more options of strace.
    Process followTraced(const Words& straceOptions, const std::string& log) const
    {
        Words options = {"-o", log};
        options.insert(options.end(), straceOptions.begin(), straceOptions.end());
        return Process(traced({.words = followWords(), .output = Channel::pipe()}, options));
    }
};

TEST_F(Follow, printsALineAtOnceAndAtEachChangeOfTheFile)
{
    Process bar = follow();
    EXPECT_EQ(bar.line(), nothingToDo);
    has(paused(60));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 01:00 paused");
    has(paused(59));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:59 paused");
    fs::remove(file());
    EXPECT_EQ(bar.line(), nothingToDo);
    EXPECT_FALSE(bar.hasOutput());
}

TEST_F(Follow, printsALineAtAChangeThatLeavesTheLineTheSame)
{
    WidgetSnapshot summary = paused(60);
    has(summary);
    Process bar = follow();
    const std::string first = bar.line();
    summary.firstAction = "Another";
    has(summary);
    EXPECT_EQ(bar.line(), first);
}

TEST_F(Follow, printsNothingWhenAnotherFileChanges)
{
    has(paused(60));
    Process bar = follow();
    bar.line();
    for (int change = 0; change < 10; ++change) {
        const long before = sleepCount(bar);
        writeText(directory.path() / "state.json", "{}");
        ASSERT_TRUE(eventually([&] { return sleepCount(bar) > before; }));
    }
    // If the other file had caused a line, that line would come first.
    has(paused(59));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:59 paused");
}

TEST_F(Follow, countsDownByItself)
{
    has(countdown(1'000));
    Process bar = follow({"--format", "json"});
    const std::int64_t first = std::stoll(jsonAt("/remaining_seconds", bar.line()));
    EXPECT_LT(std::stoll(jsonAt("/remaining_seconds", bar.line())), first);
}

TEST_F(Follow, exitsWith0AtASignal)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        for (const WidgetSnapshot& summary : {paused(60), countdown(1'000)}) {
            has(summary);
            Process bar = follow();
            bar.line();
            bar.send(signal);
            EXPECT_EQ(bar.wait().code, 0);
        }
    }
}

TEST_F(Follow, exitsWith0WhenItsReaderIsGone)
{
    // Without a change, the first bar would write nothing for half an hour.
    has(paused(60));
    Process sleeping = follow();
    sleeping.line();
    sleeping.closeOutput();
    EXPECT_EQ(sleeping.wait().code, 0);

    has(countdown(1'000));
    Process counting = follow();
    counting.line();
    counting.closeOutput();
    EXPECT_EQ(counting.wait().code, 0);

    Process beginning = followWithoutReader();
    beginning.closeOutput();
    EXPECT_EQ(beginning.wait().code, 0);
}

TEST_F(Follow, exitsWith0AtASignalWhileItsReaderIsSlow)
{
    has(countdown(1'000));
    Process bar = followWithoutReader();
    ASSERT_TRUE(eventually([&] { return blocksSignal(bar, SIGTERM); }));
    bar.send(SIGTERM);
    EXPECT_EQ(bar.wait().code, 0);
}

TEST_F(Follow, givesASlowReaderNoOutdatedLine)
{
    has(paused(60));
    Process bar = followWithoutReader();
    ASSERT_TRUE(eventually([&] { return blocksSignal(bar, SIGTERM); }));
    ASSERT_TRUE(eventually([&] { return isAsleep(bar); }));
    has(paused(59));
    std::string line;
    while (line.empty() && !HasFailure()) {
        line = bar.line();
    }
    EXPECT_EQ(line.substr(0, 18), "Focus 00:59 paused");
    EXPECT_FALSE(bar.hasOutput());
}

TEST_F(Follow, printsThatTheFileCannotBeReadAndGoesOn)
{
    has(paused(60));
    Process bar = follow();
    bar.line();
    writeText(file(), "{}");
    // While it was being written, the file was empty, which gives the same line.
    EXPECT_EQ(bar.line(), "The widget's summary cannot be read.");
    has(paused(59));
    EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:59 paused");
}

TEST_F(Follow, beginsWithAFileThatCannotBeRead)
{
    writeText(file(), "{}");
    Process bar = follow({"--format", "waybar"});
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
    Process bar({.words = {QUILLMERE_PROGRAM, "bar", "--follow"}, .output = Channel::pipe()});
    EXPECT_EQ(bar.line(), nothingToDo);
    const Person person;
    EXPECT_EQ(person.runs({"plan", "--outcome", "Chapter", "--start"}).code, ExitCode::done);
    EXPECT_EQ(bar.line(), "Planning \u00B7 Plan the next session \u00B7 Chapter");
    bar.send(SIGTERM);
    EXPECT_EQ(bar.wait().code, 0);
}

TEST_F(Follow, writesNoFileAndNeedsNoLock)
{
    has(countdown(1'000));
    const Descriptor locked(::open(directory.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(locked.get(), LOCK_EX | LOCK_NB), 0);
    const auto before = pictureOf(directory.path());
    Process bar = follow();
    bar.line();
    bar.line();
    bar.send(SIGTERM);
    EXPECT_EQ(bar.wait().code, 0);
    EXPECT_EQ(pictureOf(directory.path()), before);
}

/// The number of matches of `pattern` in a text.
std::ptrdiff_t occurrences(const std::string& text, const std::string& pattern)
{
    const std::regex expression(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator());
}

TEST_F(Follow, exitsWith0WhenItsReaderIsGoneAtTheMomentOfWriting)
{
    if (!canTrace()) {
        GTEST_SKIP() << cannotTrace;
    }
    const TemporaryDirectory beside;
    const std::string log = (beside.path() / "log").string();
    Process undisturbed = followTraced({"-e", "trace=write"}, log);
    undisturbed.line();
    undisturbed.closeOutput();
    EXPECT_EQ(undisturbed.wait().code, 0);
    // Sanitizers write to pipes of their own before.
    const std::string calls = textOf(log);
    const auto first = occurrences(calls.substr(0, calls.find("write(1,")), R"(write\()") + 1;
    // For a reader that has gone, the system sends the signal and fails the call; so does strace here.
    Process disturbed =
        followTraced({"-e", "inject=write:error=EPIPE:signal=PIPE:when=" + std::to_string(first)}, log);
    EXPECT_EQ(disturbed.wait().code, 0);
}

TEST_F(Follow, looksOnceASecondAndSaysSoOnceWhereTheFileCannotBeWatched)
{
    if (!canTrace()) {
        GTEST_SKIP() << cannotTrace;
    }
    for (const char* const call : {"inotify_init1:error=EMFILE", "inotify_add_watch:error=ENOSPC"}) {
        SCOPED_TRACE(call);
        has(paused(60));
        const TemporaryDirectory beside;
        Process bar = followTraced({"-e", std::string("inject=") + call}, (beside.path() / "log").string());
        bar.line();
        has(paused(59));
        EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:59 paused");
        has(paused(58));
        EXPECT_EQ(bar.line().substr(0, 18), "Focus 00:58 paused");
        bar.closeOutput();
        EXPECT_EQ(bar.wait().code, 0);
        EXPECT_EQ(occurrences(bar.err(), "once a second"), 1) << bar.err();
    }
}

TEST_F(Follow, sleepsWhileNothingRunsAndReadsTheFileOnlyWhenItChanges)
{
    if (!canTrace()) {
        GTEST_SKIP() << cannotTrace;
    }
    has(paused(60));
    const TemporaryDirectory beside;
    const std::string log = (beside.path() / "log").string();
    Process bar = followTraced({"-e", "trace=ppoll,openat"}, log);
    bar.line();
    has(paused(59));
    bar.line();
    bar.closeOutput();
    EXPECT_EQ(bar.wait().code, 0);
    const std::string calls = textOf(log);
    // A wait for a change has a limit of half an hour, less the time that has passed since the reading; a
    // wait for the reader has none.
    const auto sleeping = occurrences(calls, R"(ppoll\(.*tv_sec=1[0-9]{3},)");
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
