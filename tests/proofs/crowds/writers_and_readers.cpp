#include "proofs/crowds/writers_and_readers.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <array>
#include <atomic>
#include <filesystem>
#include <optional>
#include <system_error>

#include "proofs/crowds/crowd.hpp"
#include "proofs/crowds/shared.hpp"
#include "proofs/kills/numbered_versions.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t writerCount = 2;

struct Counts {
    std::atomic<std::uint64_t> saves;
    std::atomic<std::uint64_t> loads;
    std::atomic<std::uint64_t> missing;
    std::atomic<std::uint64_t> unreadable;
    std::atomic<std::uint64_t> mixed;
    std::atomic<std::uint64_t> backwards;
};

struct Goal {
    std::uint64_t saves;
    std::uint64_t loads;

    bool isReached(const Counts& counts) const { return counts.saves >= saves && counts.loads >= loads; }
};

/// Various sizes, some of several texts. Often several versions in a row have the same length, so that a
/// mixture of them could still be parsed.
QuillmereState version(std::uint64_t number)
{
    constexpr std::uint64_t rarely = 61;
    return numberedState(number, number % rarely == 0 ? 60'000 : 400 + number / 16 % 7 * 1'300);
}

/// Each writer has its own version numbers.
std::uint64_t writerOf(std::uint64_t number) { return number % writerCount; }

void save(const fs::path& directory, std::uint64_t number)
{
    const bool isDurable = number / writerCount % 2 == 0;
    const auto replace = isDurable ? StateStore::renameReplacingDurably : StateStore::renameReplacing;
    const QuillmereState state = version(number);
    StateStore(directory, replace).save(state);
    WidgetSnapshotStore(directory, replace).save(WidgetSnapshot::make(state, state.updatedAt));
}

/// The result of one load.
struct Loaded {
    std::vector<std::string> texts;
    Instant updatedAt;
};

std::vector<std::string> textsOf(const std::vector<AgentQuestion>& questions)
{
    std::vector<std::string> texts;
    for (const AgentQuestion& question : questions) {
        texts.push_back(question.question);
    }
    return texts;
}

Loaded loadState(const fs::path& directory)
{
    const QuillmereState state = StateStore(directory, StateStore::renameReplacing).load();
    return {textsOf(state.agentQuestions), state.updatedAt};
}

Loaded loadAgentSummary(const fs::path& directory)
{
    const StateStore store(directory, StateStore::renameReplacing);
    const AgentSnapshot summary =
        StateStore::decoder().decode<AgentSnapshot>(FileManager::standard().contents(store.agentStateURL()));
    return {textsOf(summary.openQuestions), summary.updatedAt};
}

Loaded loadWidgetSummary(const fs::path& directory)
{
    const WidgetSnapshot summary = WidgetSnapshotStore(directory).load();
    return {summary.openQuestions, summary.updatedAt};
}

constexpr std::array loadings = {loadState, loadAgentSummary, loadWidgetSummary};

/// Reads one file repeatedly and checks each version against the earlier ones.
class Reader {
public:
    void judge(const Loaded& loaded, Counts& counts)
    {
        // Without a file, a store loads an initial state, which has no texts.
        if (loaded.texts.empty()) {
            ++counts.missing;
            return;
        }
        const std::optional<std::uint64_t> number = numberIn(loaded.texts);
        if (!number || loaded.updatedAt != moment + static_cast<double>(*number)) {
            ++counts.mixed;
            return;
        }
        std::uint64_t& latest = latest_.at(writerOf(*number));
        counts.backwards += *number < latest ? 1 : 0;
        latest = *number;
    }

private:
    std::array<std::uint64_t, writerCount> latest_ = {};
};

void loadAndJudge(Loaded (*load)(const fs::path&), const fs::path& directory, Reader& reader, Counts& counts)
{
    ++counts.loads;
    try {
        reader.judge(load(directory), counts);
    } catch (const WidgetSnapshotLoadError& error) {
        ++(error.reason() == WidgetSnapshotLoadError::notWritten ? counts.missing : counts.unreadable);
    } catch (const std::system_error& error) {
        ++(error.code() == std::errc::no_such_file_or_directory ? counts.missing : counts.unreadable);
    } catch (const DecodingError&) {
        ++counts.unreadable;
    }
}

int write(const fs::path& directory, std::uint64_t first, Goal goal, Counts& counts)
{
    for (std::uint64_t number = first; !goal.isReached(counts); number += writerCount) {
        save(directory, number);
        ++counts.saves;
    }
    return 0;
}

int read(const fs::path& directory, Goal goal, Counts& counts)
{
    std::array<Reader, loadings.size()> readers;
    while (!goal.isReached(counts)) {
        for (std::size_t file = 0; file < loadings.size(); ++file) {
            loadAndJudge(loadings[file], directory, readers[file], counts);
        }
    }
    return 0;
}

}  // namespace

Findings findingsOf(std::uint64_t saves, std::uint64_t loads)
{
    const TemporaryDirectory directory;
    const Shared<Counts> counts;
    const Goal goal{saves, loads};
    Crowd crowd;
    save(directory.path(), 0);
    for (std::uint64_t writer = 1; writer <= writerCount; ++writer) {
        crowd.join([&] { return write(directory.path(), writer, goal, *counts); });
    }
    for (int reader = 0; reader < crowdSize; ++reader) {
        crowd.join([&] { return read(directory.path(), goal, *counts); });
    }
    const bool allEndedWell = crowd.allSucceed();
    return {.allEndedWell = allEndedWell,
            .saves = counts->saves,
            .loads = counts->loads,
            .missing = counts->missing,
            .unreadable = counts->unreadable,
            .mixed = counts->mixed,
            .backwards = counts->backwards,
            .names = directory.names()};
}

}  // namespace quillmere::test
