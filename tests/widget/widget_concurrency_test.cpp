// Two writers of the widget's summary at once, and a reader.
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

TEST(WidgetSnapshotStore, showsReadersWholeFilesWhileTwoWrite)
{
    constexpr int rounds = 100;
    const TemporaryDirectory directory;
    const WidgetSnapshotStore store(directory.path());
    WidgetSnapshot snapshots[] = {WidgetSnapshot::empty(moment), WidgetSnapshot::placeholder(moment)};
    // Many pages, so that an incomplete file would be noticed.
    snapshots[1].firstAction = std::string(100'000, 'a');
    store.save(snapshots[0]);

    std::atomic<int> writersAtWork = 2;
    const auto write = [&](const WidgetSnapshot& snapshot) {
        for (int round = 0; round < rounds; ++round) {
            EXPECT_NO_THROW(store.save(snapshot));
        }
        --writersAtWork;
    };
    std::thread first(write, std::cref(snapshots[0]));
    std::thread second(write, std::cref(snapshots[1]));
    do {
        const WidgetSnapshot read = store.load();
        EXPECT_TRUE(read == snapshots[0] || read == snapshots[1]);
    } while (writersAtWork > 0);
    first.join();
    second.join();

    EXPECT_EQ(directory.names(), std::vector<std::string>{"widget-snapshot.json"});
}

}  // namespace
}  // namespace quillmere::test
