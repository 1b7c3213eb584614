// A process that saves continuously until it is killed.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "support/process.hpp"

namespace quillmere::test {

/// The version numbers in the three files of a directory; absent for a missing file or a mixture of versions.
struct Numbers {
    std::optional<std::uint64_t> state;
    std::optional<std::uint64_t> agent;
    std::optional<std::uint64_t> widget;
};

/// Saves a numbered version: the state and both summaries.
void saveNumbered(const std::filesystem::path& directory, const QuillmereState& state);

/// Loads all three files.
Numbers loadNumbered(const std::filesystem::path& directory);

/// The size of a version: 1 kB to 5 MB, distributed evenly over the powers of ten. Depends only on the
/// number.
std::size_t sizeOfVersion(std::uint64_t number);

class SavingProcess {
public:
    /// Saves the versions from `first` on, one after another.
    SavingProcess(const std::filesystem::path& directory, std::uint64_t first);
    SavingProcess(const SavingProcess&) = delete;
    SavingProcess& operator=(const SavingProcess&) = delete;
    ~SavingProcess();

    /// Waits until the first save has started.
    void waitForBeginning();

    /// Kills it wherever it is.
    void kill();

    std::uint64_t begun() const { return progress_->begun; }          ///< the last version whose save started
    std::uint64_t completed() const { return progress_->completed; }  ///< the last fully saved one

private:
    struct Progress {
        std::atomic<std::uint64_t> begun;
        std::atomic<std::uint64_t> completed;
    };

    /// Runs in the child process, which ends when a save throws.
    [[noreturn]] void saveForEver(const std::filesystem::path& directory);

    std::uint64_t first_;
    Progress* progress_;  ///< in memory shared by both processes
    std::optional<Process> process_;
};

}  // namespace quillmere::test
