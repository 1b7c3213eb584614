// Allocation failures in a run of the program. It succeeds, or ends with exit code 71, or 74 when a summary
// is missing, and says whether the change is saved; the files change from old to new one after another and
// are always whole; the next run works.
#include <unistd.h>

#include <cstdlib>

#include "failing_run.hpp"
#include "proofs/support/figures.hpp"
#include "running_out.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr Instant soon = moment + 60;
constexpr Instant late = moment + 9999;

/// A command, the state and the instant for it, and its exit code without failed allocations.
struct Typed {
    const char* name;
    QuillmereState (*state)();
    Instant now;
    Words words;
    ExitCode code = ExitCode::done;
};

template <WorkflowState workflowState>
QuillmereState in()
{
    return stateIn(workflowState);
}

QuillmereState paused()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment;
    return state;
}

/// An idle state with a block in the history and questions.
QuillmereState withHistory()
{
    QuillmereState state = fullState();
    state.workflowState = WorkflowState::idle;
    state.currentBlock.reset();
    state.plannedNextSession.reset();
    state.breakStartedAt.reset();
    return state;
}

const std::vector<Typed>& everything()
{
    using enum WorkflowState;
    static const std::string text = "A text that is too long to be kept without an allocation";
    static const std::vector<Typed> all = {
        {"plan --start", in<idle>, soon, {"plan", "--outcome", text, "--why", text, "--start"}},
        {"plan --at", in<idle>, soon, {"plan", "--outcome", text, "--at", "+1h"}},
        {"start", stateWithScheduledBlock, soon, {"start"}},
        {"edit", stateWithScheduledBlock, soon, {"edit", "--why", text}},
        {"cancel", stateWithScheduledBlock, soon, {"cancel"}},
        {"focus", in<sessionPlanning>, soon, {"focus", "--outcome", text, "--energy", "4", "--morale", "3"}},
        {"pause", in<focusing>, soon, {"pause"}},
        {"resume", paused, soon, {"resume"}},
        {"end", in<focusing>, soon, {"end"}},
        {"review",
         in<sessionReview>,
         soon,
         {"review", "--completion", "yes", "--result", text, "--next-outcome", text, "--next-energy", "4",
          "--next-morale", "3"}},
        {"break extend", in<breaking>, soon, {"break", "extend", "5m"}},
        {"break end", in<breaking>, soon, {"break", "end"}},
        {"reflect", in<blockReview>, soon, {"reflect", "--output", text, "--lessons", text}},
        {"ask", in<focusing>, soon, {"ask", text}},
        {"answer", withHistory, soon, {"answer", "1", text}},
        {"tick, with a session's end", in<focusing>, late, {"tick"}},
        {"tick, with nothing to do", in<focusing>, soon, {"tick"}},
        {"status", fullState, soon, {"status"}},
        {"status, after a session's end", in<focusing>, late, {"status"}},
        {"history", withHistory, soon, {"history"}},
        {"questions", withHistory, soon, {"questions"}},
        {"widget", in<focusing>, soon, {"widget"}},
        {"a refusal", in<idle>, soon, {"pause"}, ExitCode::refused},
        {"a misunderstanding", in<idle>, soon, {"plan", "--focus", "\x1b[2J"}, ExitCode::usage},
        {"no command", in<idle>, soon, {"--help"}},
    };
    return all;
}

/// The three files, with every identifier replaced by "#", because each run draws different ones.
struct SavedFiles {
    std::string state;
    std::string agent;
    std::string widget;

    friend bool operator==(const SavedFiles&, const SavedFiles&) = default;
};

bool isIdentifierAt(const std::string& text, std::size_t place)
{
    constexpr std::string_view form = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    if (text.size() - place < form.size()) {
        return false;
    }
    for (std::size_t index = 0; index < form.size(); ++index) {
        const char character = text[place + index];
        const bool isHexadecimal =
            std::string_view("0123456789ABCDEFabcdef").find(character) != std::string_view::npos;
        if (form[index] == '-' ? character != '-' : !isHexadecimal) {
            return false;
        }
    }
    return true;
}

std::string withoutIdentifiers(const std::string& text)
{
    constexpr std::size_t length = 36;
    std::string result;
    for (std::size_t place = 0; place < text.size();) {
        const bool skip = isIdentifierAt(text, place);
        result += skip ? '#' : text[place];
        place += skip ? length : 1;
    }
    return result;
}

SavedFiles filesOf(const Person& person)
{
    const auto text = [&](const char* name) { return withoutIdentifiers(textOf(person.directory() / name)); };
    return {.state = text("state.json"),
            .agent = text("agent-state.json"),
            .widget = text("widget-snapshot.json")};
}

/// Whether each file is old or new, and none is newer than the file that it is derived from.
bool areInOrder(const SavedFiles& files, const SavedFiles& oldFiles, const SavedFiles& newFiles)
{
    SavedFiles expected = oldFiles;
    if (files == expected) {
        return true;
    }
    expected.state = newFiles.state;
    if (files == expected) {
        return true;
    }
    expected.agent = newFiles.agent;
    return files == expected || files == newFiles;
}

/// Whether a run with a failed allocation ended as required: as without one, or with a message that tells
/// whether the change is saved.
bool endedInOrder(const FailingRun& run, const Typed& typed, const SavedFiles& files,
                  const SavedFiles& oldFiles, const SavedFiles& newFiles)
{
    const bool isSaved = files.state == newFiles.state;
    if (run.code == ExitCode::outOfMemory) {
        const bool recordsOnlyTime = typed.words.front() == "tick";
        return run.err.ends_with("There is not enough memory.\n")
                   ? !isSaved || files.state == oldFiles.state || recordsOnlyTime
                   : isSaved && run.err == "The command was carried out, then there was not enough memory.\n";
    }
    if (run.code == ExitCode::fileError) {
        return isSaved &&
               run.err.ends_with("could not be written: not enough memory. quillmere tick tries again.\n");
    }
    return run.code == typed.code && files == newFiles;
}

/// Fails every `step`-th allocation of a command.
Tally runOutInProgram(const Typed& typed, std::size_t mostRuns)
{
    const Person person;
    const QuillmereState before = typed.state();
    const auto prepare = [&] {
        person.has(before);
        return filesOf(person);
    };
    Words words = {"--directory", person.directory().string()};
    words.insert(words.end(), typed.words.begin(), typed.words.end());
    const SavedFiles oldFiles = prepare();
    const auto names = person.names();
    runFailing(undisturbed, words, typed.now);  // performs the allocations that happen once per process
    prepare();
    const FailingRun whole = runFailing(undisturbed, words, typed.now);
    EXPECT_EQ(whole.code, typed.code) << whole.err;
    const SavedFiles newFiles = filesOf(person);
    const std::size_t step = whole.allocations / mostRuns + 1;

    Tally tally;
    bool areOld = false;
    for (std::size_t allocation = 0; allocation < whole.allocations; allocation += step) {
        if (!areOld) {
            prepare();
        }
        const FailingRun run = runFailing(allocation, words, typed.now);
        const SavedFiles files = filesOf(person);
        areOld = files == oldFiles;
        const bool inOrder = areInOrder(files, oldFiles, newFiles) && person.names() == names &&
                             endedInOrder(run, typed, files, oldFiles, newFiles);
        EXPECT_TRUE(inOrder) << "allocation " << allocation << ": exit " << static_cast<int>(run.code) << ' '
                             << run.err;
        tally += {.failed = run.failed ? std::size_t{1} : 0,
                  .recovered = run.failed && run.code != ExitCode::outOfMemory ? std::size_t{1} : 0,
                  .leaking = run.leaks ? std::size_t{1} : 0,
                  .changed = inOrder ? std::size_t{0} : 1};
    }
    prepare();
    EXPECT_EQ(runFailing(undisturbed, words, typed.now).code, typed.code);
    EXPECT_EQ(filesOf(person), newFiles);
    return tally;
}

/// Keeps files in memory where possible, because there are many saves.
std::optional<std::string> placeInMemory()
{
    const char* const chosen = std::getenv("TMPDIR");
    const char* const inMemory = "/dev/shm";
    return chosen ? std::optional<std::string>(chosen)
                  : (::access(inMemory, W_OK) == 0 ? std::optional<std::string>(inMemory) : std::nullopt);
}

TEST(MemoryRunningOut, inTheProgramEndsItInOrder)
{
    const EnvironmentVariable place("TMPDIR", placeInMemory());
    constexpr std::uint64_t some = 12;
    constexpr std::uint64_t all = 1'000'000;
    Tally tally;
    for (const Typed& typed : everything()) {
        SCOPED_TRACE(typed.name);
        tally += runOutInProgram(typed, amount(some, all));
    }
    const std::size_t atLeast = amount(200, 500);
    reportFigure("Memory running out at every allocation", "commands of the program", everything().size());
    expectWhole("program", tally, atLeast, tally.failed / 2);
}

}  // namespace
}  // namespace quillmere::test
