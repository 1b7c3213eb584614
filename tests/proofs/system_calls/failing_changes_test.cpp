// Changes by the real program that fail or run out of room: what they keep, and what they say.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/store/wall_clock.hpp>

#include <algorithm>
#include <map>

#include "cli/exit_code.hpp"
#include "proofs/support/figures.hpp"
#include "proofs/system_calls/call_errors.hpp"
#include "proofs/system_calls/traced_faults.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"
#include "workspace/state_home.hpp"
#include "workspace/versions.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

struct Change {
    std::vector<std::string> words;
    /// Makes the state before it, since some last for minutes only; absent: there is no directory yet.
    std::optional<QuillmereState> (*before)();
};

std::optional<QuillmereState> nothing() { return std::nullopt; }

template <WorkflowState workflowState>
std::optional<QuillmereState> in()
{
    return stateIn(workflowState);
}

/// A session that began a minute ago by the clock of the program.
std::optional<QuillmereState> runningFocus()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.updatedAt = wallClock() - 60;
    state.currentBlock->sessions.back().startedAt = state.updatedAt;
    return state;
}

std::optional<QuillmereState> pausedFocus()
{
    QuillmereState state = *runningFocus();
    state.currentBlock->sessions.back().pausedAt = state.updatedAt;
    return state;
}

std::optional<QuillmereState> runningBreak()
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.updatedAt = wallClock() - 60;
    state.breakStartedAt = state.updatedAt;
    return state;
}

std::optional<QuillmereState> scheduledBlock()
{
    QuillmereState state = stateWithScheduledBlock();
    state.currentBlock->plannedStart = wallClock() + 3'600;
    return state;
}

std::optional<QuillmereState> withQuestion()
{
    QuillmereState state = stateIn(WorkflowState::idle);
    WorkflowEngine().addQuestion(state, "Which build?", state.updatedAt);
    return state;
}

/// Of every command that changes the state: by a person, by the clock, and by both. The short form tries the
/// first seven.
std::vector<Change> changes()
{
    std::vector<Change> all = {
        {{"ask", "May I?"}, nothing},
        {{"ask", "May I?"}, in<WorkflowState::idle>},
        {{"plan", "--outcome", "A chapter", "--start"}, in<WorkflowState::idle>},
        {{"tick"}, in<WorkflowState::focusing>},
        {{"review", "--completion", "yes", "--next-outcome", "More", "--next-energy", "4", "--next-morale",
          "3"},
         in<WorkflowState::focusing>},
        {{"reflect", "--lessons", "Close the door"}, in<WorkflowState::blockReview>},
        {{"restore", "1", "--yes"}, in<WorkflowState::idle>},
        {{"answer", "1", "The new one"}, withQuestion},
        {{"pause"}, runningFocus},
        {{"resume"}, pausedFocus},
        {{"end"}, runningFocus},
        {{"focus", "--outcome", "A page", "--energy", "4", "--morale", "3"},
         in<WorkflowState::sessionPlanning>},
        {{"break", "extend", "5m"}, runningBreak},
        {{"break", "end"}, runningBreak},
        {{"start"}, scheduledBlock},
        {{"edit", "--why", "Another reason"}, scheduledBlock},
        {{"cancel"}, scheduledBlock},
    };
    constexpr std::size_t few = 7;
    if (!inLongForm()) {
        all.resize(few, {{}, in<WorkflowState::idle>});
    }
    return all;
}

/// A directory with a state that is the third: two versions are kept. Without a state there is no directory.
class Files {
public:
    explicit Files(const std::optional<QuillmereState>& state)
    {
        if (state) {
            QuillmereState old = *state;
            addEarlierYears(old);
            has(old);
        }
    }

    fs::path directory() const { return home_.path() / "files"; }
    fs::path stateHome() const { return home_.path() / "kept"; }
    const fs::path& home() const { return home_.path(); }

    TracedRun run(const std::vector<std::string>& words, const std::string& injection = {}) const
    {
        return traced(directory(), words, home(), injection, stateHome());
    }

    /// Whether each of the three files can be read.
    bool areWhole() const
    {
        const auto isWhole = [&](const char* name) {
            const fs::path file = directory() / name;
            return !fs::exists(file) || nlohmann::json::accept(textOf(file));
        };
        return isWhole("state.json") && isWhole("agent-state.json") && isWhole("widget-snapshot.json");
    }
    bool hasChanged() const
    {
        const fs::path file = directory() / "state.json";
        return fs::exists(file) && textOf(file) != before_;
    }
    bool hasSameVersions() const { return list() == listBefore_; }
    /// Older ones may have given way: a quota shows only in the error of a write.
    bool hasNewestVersion() const
    {
        return listBefore_.empty() || (!list().empty() && *list().rbegin() == *listBefore_.rbegin());
    }

    std::vector<workspace::Version> versionList() const { return versions().list(); }

private:
    void has(const QuillmereState& state)
    {
        const StateStore states(directory(), StateStore::renameReplacing);
        states.save(state);
        for (const double age : {200.0, 100.0}) {
            fs::path earlier = home_.path() / "earlier.json";
            QuillmereState older = state;
            older.updatedAt = state.updatedAt - age;
            writeText(earlier, std::string(StateStore::encoder().encode(older).view()));
            versions().keep(earlier, older.updatedAt);
            fs::remove(earlier);
        }
        before_ = textOf(directory() / "state.json");
        listBefore_ = list();
    }

    workspace::Versions versions() const
    {
        return workspace::Versions(workspace::stateDirectory(directory(), stateHome()) / "versions");
    }
    std::map<std::string, std::string> list() const
    {
        std::map<std::string, std::string> texts;
        for (const workspace::Version& version : versions().list()) {
            texts[version.file.string()] = textOf(version.file);
        }
        return texts;
    }

    TemporaryDirectory home_;
    std::string before_;
    std::map<std::string, std::string> listBefore_;
};

/// Whether a message tells a person that the change, or the time that passed, is recorded.
bool saysThatItIsSaved(const std::string& message)
{
    return message.find("The change itself is saved") != std::string::npos ||
           message.find("The focus session ended at") != std::string::npos ||
           message.find("The time that passed is recorded") != std::string::npos ||
           message.find("Version 1 is restored") != std::string::npos;
}

class AChangeOfTheRealProgram : public testing::Test {
protected:
    void SetUp() override
    {
        if (!canTrace()) {
            GTEST_SKIP() << cannotTrace;
        }
    }
};

TEST_F(AChangeOfTheRealProgram, thatFailsSaysWhatIsSavedAndKeepsNoVersionOfWhatIsNot)
{
    std::size_t failed = 0;
    for (const Change& change : changes()) {
        const Files example(change.before());
        const TracedRun undisturbed = example.run(change.words);
        ASSERT_EQ(undisturbed.code, 0) << change.words[0] << ": " << undisturbed.err;
        ASSERT_TRUE(example.hasChanged()) << change.words[0];
        const std::vector<TracedCall>& calls = undisturbed.calls;
        // The short form tries one rename only.
        for (const TracedCall& call : calls) {
            if (!inLongForm() && callOf(call) != SystemCall::rename) {
                continue;
            }
            for (const int error : inLongForm() ? errorsToTry(call) : std::vector<int>{EIO}) {
                for (const bool fromThereOn : {false, true}) {
                    if (fromThereOn && !mayBePermanent(call)) {
                        continue;
                    }
                    const Files files(change.before());
                    const std::string injection = injectionOf(call, error, fromThereOn);
                    SCOPED_TRACE(change.words[0] + " " + injection + "   " + call.text);
                    const TracedRun run = files.run(change.words, injection);
                    EXPECT_LT(run.code, 128);
                    // Where no write succeeds any more there is no message either.
                    const bool canSpeak = !fromThereOn || callOf(call) != SystemCall::write;
                    if (canSpeak && run.code != 0) {
                        EXPECT_EQ(files.hasChanged(), saysThatItIsSaved(run.err)) << run.err;
                    }
                    EXPECT_TRUE(files.areWhole());
                    EXPECT_TRUE(files.hasChanged() || files.hasSameVersions() ||
                                (error == EDQUOT && files.hasNewestVersion()))
                        << run.err;
                    EXPECT_EQ(run.err.find(".tmp"), std::string::npos) << run.err;
                    failed += run.code != 0 ? 1 : 0;
                }
            }
            if (!inLongForm()) {
                break;
            }
        }
    }
    EXPECT_GE(failed, changes().size());
    reportFigure("A fault at every system call of the program, by strace",
                 "failed changes, all said what is saved", failed);
}

TEST_F(AChangeOfTheRealProgram, writesNoByteOfTheStateTwice)
{
    const Files files(stateIn(WorkflowState::idle));
    const TracedRun run = files.run({"ask", "May I?"});
    std::size_t written = 0;
    for (const TracedCall& call : run.calls) {
        if (callOf(call) == SystemCall::write) {
            written += std::stoul(call.text.substr(call.text.rfind("= ") + 2));
        }
    }
    std::size_t size = 0;
    for (const char* const name : {"state.json", "agent-state.json", "widget-snapshot.json"}) {
        size += fs::file_size(files.directory() / name);
    }
    EXPECT_EQ(written, size);
}

TEST_F(AChangeOfTheRealProgram, takesTheRoomOfTheOldestVersion)
{
    const Files files(stateIn(WorkflowState::idle));
    const std::vector<TracedCall> calls = files.run({"ask", "Why?"}).calls;
    const auto write = std::find_if(calls.begin(), calls.end(),
                                    [](const TracedCall& call) { return callOf(call) == SystemCall::write; });
    ASSERT_NE(write, calls.end());
    const TracedRun run = files.run({"ask", "May I?"}, injectionOf(*write, EDQUOT, false));
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "There was no room: 1 earlier version was deleted.\n");
    // Of three versions the oldest is gone, and the replaced state is kept.
    ASSERT_EQ(files.versionList().size(), 3U);
    EXPECT_EQ(files.versionList().back().number, 2);
}

TEST_F(AChangeOfTheRealProgram, losesNoVersionToADeviceThatReportsNoRoomAlthoughThereIsSome)
{
    const Files files(stateIn(WorkflowState::idle));
    const std::vector<TracedCall> calls = files.run({"ask", "Why?"}).calls;
    const auto sync = std::find_if(calls.begin(), calls.end(),
                                   [](const TracedCall& call) { return callOf(call) == SystemCall::fsync; });
    ASSERT_NE(sync, calls.end());
    const Files others(stateIn(WorkflowState::idle));
    const TracedRun run = others.run({"ask", "May I?"}, injectionOf(*sync, ENOSPC, true));
    EXPECT_EQ(run.code, static_cast<int>(cli::ExitCode::fileError));
    EXPECT_TRUE(others.hasSameVersions());
}

TEST_F(AChangeOfTheRealProgram, withoutAnyRoomLeavesTheNewestVersion)
{
    const Files files(stateIn(WorkflowState::idle));
    const std::vector<TracedCall> calls = files.run({"ask", "Why?"}).calls;
    const auto sync = std::find_if(calls.begin(), calls.end(),
                                   [](const TracedCall& call) { return callOf(call) == SystemCall::fsync; });
    ASSERT_NE(sync, calls.end());
    const TracedRun run = files.run({"ask", "May I?"}, injectionOf(*sync, EDQUOT, true));
    EXPECT_EQ(run.code, static_cast<int>(cli::ExitCode::fileError));
    ASSERT_EQ(files.versionList().size(), 1U);
    EXPECT_EQ(files.versionList().front().number, 3);
}

}  // namespace
}  // namespace quillmere::test
