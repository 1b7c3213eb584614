// Several threads write and read one directory at once: every reader sees complete files.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

constexpr int rounds = 60;

/// A state with a file of many pages, so that an incomplete file would be noticed.
QuillmereState longState(unsigned number)
{
    QuillmereState state = fullState();
    state.id = identifier(number);
    state.currentBlock->contextNotes = std::string(40'000 * number, 'a');
    return state;
}

TEST(StateStore, showsReadersWholeFilesWhileTwoWrite)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path(), StateStore::renameReplacing);
    const QuillmereState states[] = {longState(1), longState(2)};
    const AgentSnapshot summaries[] = {store.agentSnapshot(states[0], std::nullopt),
                                       store.agentSnapshot(states[1], std::nullopt)};
    store.save(states[0]);

    std::atomic<int> writersAtWork = 2;
    const auto write = [&](const QuillmereState& state) {
        for (int round = 0; round < rounds; ++round) {
            EXPECT_NO_THROW(store.save(state));
        }
        --writersAtWork;
    };
    std::thread first(write, std::cref(states[0]));
    std::thread second(write, std::cref(states[1]));
    int reads = 0;
    do {
        const QuillmereState state = store.load();
        EXPECT_TRUE(state == states[0] || state == states[1]);
        const auto summary = StateStore::decoder().decode<AgentSnapshot>(
            FileManager::standard().contents(store.agentStateURL()));
        EXPECT_TRUE(summary == summaries[0] || summary == summaries[1]);
        ++reads;
    } while (writersAtWork > 0);
    first.join();
    second.join();

    EXPECT_GT(reads, 0);
    EXPECT_EQ(directory.names(), (std::vector<std::string>{"agent-state.json", "state.json"}));
    const QuillmereState last = store.load();
    EXPECT_TRUE(last == states[0] || last == states[1]);
}

TEST(StateStore, isCreatedBySeveralAtOnce)
{
    const TemporaryDirectory directory;
    for (int round = 0; round < rounds; ++round) {
        const StateStore store(directory.path() / std::to_string(round) / "inner",
                               StateStore::renameReplacing);
        const auto save = [&] { EXPECT_NO_THROW(store.save(fullState())); };
        std::thread first(save);
        std::thread second(save);
        first.join();
        second.join();
        EXPECT_EQ(store.load(), fullState());
        EXPECT_EQ(namesIn(store.directory()), (std::vector<std::string>{"agent-state.json", "state.json"}));
    }
}

}  // namespace
}  // namespace quillmere::test
