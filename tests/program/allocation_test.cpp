// Memory that runs out in the middle of a run: it ends in order, and every file is the old or the new one.
#include <array>
#include <istream>
#include <ostream>
#include <streambuf>

#include "program_testing.hpp"
#include "support/failing_allocations.hpp"

namespace quillmere::test {
namespace {

/// Takes what is printed without asking for memory, as a standard output does.
class FixedBuffer final : public std::streambuf {
public:
    FixedBuffer() { setp(characters_.data(), characters_.data() + characters_.size()); }
    std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

private:
    std::array<char, 16'384> characters_;
};

/// What a run with little memory came to.
struct Attempt {
    ExitCode code;
    bool failed;       ///< whether an allocation did
    std::size_t left;  ///< blocks that were not given back
    std::string err;
};

/// Runs a command whose allocation of this number fails.
Attempt runFailing(std::size_t allocation, const Words& words, Instant now)
{
    FixedBuffer in;
    FixedBuffer out;
    FixedBuffer err;
    std::istream input(&in);
    std::ostream output(&out);
    std::ostream errors(&err);
    app::Environment environment{.in = input,
                                 .out = output,
                                 .err = errors,
                                 .clock = [now] { return now; },
                                 .inputIsTerminal = false,
                                 .outputIsTerminal = false};
    const std::size_t blocks = blocksInUse();
    failAllocationAfter(allocation);
    const ExitCode code = app::run(words, environment);
    const bool failed = stopFailingAllocations();
    const std::size_t left = blocksInUse() - blocks;
    return {.code = code, .failed = failed, .left = left, .err = std::string(err.text())};
}

/// How many runs of a command there are at most; the failing allocations are spread evenly.
constexpr std::size_t mostRuns = 150;

// Without --json: the JSON library that prints results loses memory of its own when there is none.

/// Lets allocations of a command fail, one a run, from the first to the last, on copies of one state.
void failThrough(const Words& command, const QuillmereState& before, Instant now)
{
    const Person person;
    person.has(before);
    const auto oldFiles = namesIn(person.directory());
    Words words = {"--directory", person.directory().string()};
    words.insert(words.end(), command.begin(), command.end());
    // The first run warms up whatever is made once a process.
    runFailing(0, words, now);
    const std::size_t madeBefore = allocationsMade();
    EXPECT_EQ(runFailing(static_cast<std::size_t>(-2), words, now).code, ExitCode::done);
    const std::size_t total = allocationsMade() - madeBefore;
    const QuillmereState after = person.state();
    const std::size_t step = total / mostRuns + 1;

    std::size_t failures = 0;
    for (std::size_t allocation = 0; allocation < total; allocation += step) {
        SCOPED_TRACE(allocation);
        person.store().save(before);
        const Attempt run = runFailing(allocation, words, now);
        failures += run.failed ? 1 : 0;
        EXPECT_EQ(run.left, 0u);
        if (run.code == ExitCode::outOfMemory) {
            EXPECT_EQ(run.err, "There is not enough memory.\n");
        } else {
            EXPECT_EQ(run.code, ExitCode::done) << run.err;
        }
        const QuillmereState left = person.state();
        const bool isOld = left == before;
        EXPECT_TRUE(isOld || left.agentQuestions.size() == after.agentQuestions.size());
        EXPECT_TRUE(isOld || left.workflowState == after.workflowState);
        EXPECT_NO_THROW(person.agentSummary());
        EXPECT_NO_THROW(person.widgetSummary());
        EXPECT_EQ(person.names(), oldFiles);
    }
    EXPECT_GT(failures, mostRuns / 2);
}

TEST(Allocations, failingWhileAQuestionIsAskedLeaveWholeFiles)
{
    failThrough({"ask", "A question that is too long to be kept without an allocation?"},
                stateIn(WorkflowState::focusing), moment + 60);
}

TEST(Allocations, failingWhileASessionEndsByItselfLeaveWholeFiles)
{
    failThrough({"tick"}, stateIn(WorkflowState::focusing), moment + 9999);
}

TEST(Allocations, failingWhileSomebodyLooksChangeNothing)
{
    failThrough({"status"}, stateIn(WorkflowState::breaking), moment + 60);
}

TEST(Allocations, failingAreToldToProgramsAsAnObject)
{
    // While the command line is read, before any JSON is made.
    const TemporaryDirectory directory;
    const Words words = {"--directory", directory.path().string(), "pause", "--json"};
    runFailing(0, words, moment);
    for (std::size_t allocation = 0; allocation < 600; allocation += 60) {
        const Attempt run = runFailing(allocation, words, moment);
        EXPECT_EQ(run.code, ExitCode::outOfMemory);
        EXPECT_EQ(jsonAt("/error", run.err),
                  R"({"case":"outOfMemory","message":"There is not enough memory."})");
    }
}

TEST(Allocations, failingWhileACommandIsMisunderstoodEndInOrder)
{
    const TemporaryDirectory directory;
    const Words words = {"--directory", directory.path().string(), "plan", "--focus", "\x1b[2J"};
    runFailing(0, words, moment);
    for (std::size_t allocation = 1; allocation < 6000; allocation += 97) {
        const Attempt run = runFailing(allocation, words, moment);
        EXPECT_EQ(run.code, run.failed ? ExitCode::outOfMemory : ExitCode::usage) << allocation << run.err;
    }
}

}  // namespace
}  // namespace quillmere::test
