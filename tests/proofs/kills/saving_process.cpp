#include "proofs/kills/saving_process.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cmath>
#include <new>
#include <random>
#include <stdexcept>

#include "proofs/kills/numbered_versions.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

StateStore storeIn(const fs::path& directory) { return {directory, StateStore::renameReplacingDurably}; }

WidgetSnapshotStore widgetStoreIn(const fs::path& directory)
{
    return WidgetSnapshotStore(directory, StateStore::renameReplacingDurably);
}

/// The result of `load`; absent when it throws.
template <class Load>
std::optional<std::uint64_t> numberFrom(Load load)
{
    try {
        return load();
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
        return std::nullopt;
    }
}

}  // namespace

void saveNumbered(const fs::path& directory, const QuillmereState& state)
{
    storeIn(directory).save(state);
    widgetStoreIn(directory).save(WidgetSnapshot::make(state, state.updatedAt));
}

Numbers loadNumbered(const fs::path& directory)
{
    const StateStore states = storeIn(directory);
    return {
        .state = numberFrom([&] { return numberIn(states.load().agentQuestions); }),
        .agent = numberFrom([&] {
            const Bytes text(textOf(states.agentStateURL()));
            return numberIn(StateStore::decoder().decode<AgentSnapshot>(text).openQuestions);
        }),
        .widget = numberFrom([&] { return numberIn(widgetStoreIn(directory).load().openQuestions); }),
    };
}

std::size_t sizeOfVersion(std::uint64_t number)
{
    constexpr double smallest = 1e3;
    constexpr double largest = 5e6;
    std::mt19937_64 random(number);
    const double share = static_cast<double>(random() >> 11) * 0x1p-53;
    return static_cast<std::size_t>(smallest * std::pow(largest / smallest, share));
}

SavingProcess::SavingProcess(const fs::path& directory, std::uint64_t first) : first_(first)
{
    void* const shared =
        ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        throw std::bad_alloc();
    }
    progress_ = new (shared) Progress{.begun = first - 1, .completed = first - 1};
    process_.emplace(ProcessOptions{.work = [&]() -> int { saveForEver(directory); },
                                    .output = Channel::inherited(),
                                    .error = Channel::inherited()});
}

void SavingProcess::saveForEver(const fs::path& directory)
{
    for (std::uint64_t number = first_;; ++number) {
        const QuillmereState state = numberedState(number, sizeOfVersion(number));
        progress_->begun = number;
        saveNumbered(directory, state);
        progress_->completed = number;
    }
}

SavingProcess::~SavingProcess()
{
    kill();
    ::munmap(progress_, sizeof(Progress));
}

void SavingProcess::waitForBeginning()
{
    if (!eventually([&] { return progress_->begun >= first_ || process_->hasEnded(); }) ||
        process_->hasEnded()) {
        throw std::runtime_error("the saving process does not save");
    }
}

void SavingProcess::kill() { process_.reset(); }

}  // namespace quillmere::test
