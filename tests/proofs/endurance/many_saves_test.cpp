// One process that saves many times, like an application that is never closed.
#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <gtest/gtest.h>

#include "proofs/endurance/process_memory.hpp"
#include "proofs/support/figures.hpp"
#include "support/failing_allocations.hpp"
#include "support/file_system.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

/// Resource use, which must not grow.
struct Footprint {
    std::size_t blocks = blocksInUse();
    std::size_t files = openFileCount();

    friend bool operator==(const Footprint&, const Footprint&) = default;
};

/// An application in the middle of a session: each action saves all three files.
class Application {
public:
    explicit Application(const std::filesystem::path& directory)
        : store_(directory, StateStore::renameReplacing), widgetStore_(directory), state_(fullState())
    {
        // Whole seconds, because the widget's file holds the instant from which the time counts.
        state_.currentBlock->sessions.back().accumulatedPausedSeconds = 42;
    }

    void actAndSave()
    {
        constexpr WorkflowEngine engine;
        now_ = now_ + 1;
        if (state_.interruptible()) {
            engine.resumeFocus(state_, now_);
        } else {
            engine.pauseFocus(state_, now_);
        }
        store_.save(state_);
        widgetStore_.save(WidgetSnapshot::make(state_, now_));
    }

    /// Reads all files back and returns whether they hold the last saved state.
    bool isSaved() const
    {
        return store_.load() == state_ && widgetStore_.load() == WidgetSnapshot::make(state_, now_);
    }

private:
    StateStore store_;
    WidgetSnapshotStore widgetStore_;
    QuillmereState state_;
    Instant now_ = moment + 400;
};

TEST(ManySaves, leaveNoMemoryNoDescriptorAndNoFileBehind)
{
    const TemporaryDirectory directory;
    Application application(directory.path());
    for (int warmUp = 0; warmUp < 50; ++warmUp) {
        application.actAndSave();
    }
    EXPECT_TRUE(application.isSaved());
    const std::vector<std::string> names = directory.names();
    const std::uint64_t wanted = amount(500, 100'000);
    const Footprint before;
    const std::int64_t residentBefore = residentKilobytes();
    std::uint64_t loads = 0;
    for (std::uint64_t save = 1; save <= wanted && !HasFailure(); ++save) {
        application.actAndSave();
        if (save % 250 == 0) {
            EXPECT_TRUE(application.isSaved());
            EXPECT_EQ(Footprint(), before) << "after " << save << " saves";
            ++loads;
        }
    }
    const std::int64_t residentAfter = residentKilobytes();
    const Footprint after;
    EXPECT_EQ(after, before);
    EXPECT_EQ(directory.names(), names);
    EXPECT_EQ(names.size(), 3U);

    const std::string promise = "Saves of all three files in one process";
    reportFigure(promise, "saves", wanted);
    reportFigure(promise, "loads in between", loads);
    reportFigure(promise, "blocks of memory gained", static_cast<std::int64_t>(after.blocks - before.blocks));
    reportFigure(promise, "descriptors gained", static_cast<std::int64_t>(after.files - before.files));
    reportFigure(promise, "resident memory before", std::to_string(residentBefore) + " kB");
    reportFigure(promise, "resident memory after", std::to_string(residentAfter) + " kB");
}

}  // namespace
}  // namespace quillmere::test
