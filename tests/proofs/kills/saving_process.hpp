// A process that does nothing but save, until it is killed.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "support/process.hpp"

namespace quillmere::test {

/// The numbers in the three files of a directory; absent for a file that is missing, or not of one piece.
struct Numbers {
    std::optional<std::uint64_t> state;
    std::optional<std::uint64_t> agent;
    std::optional<std::uint64_t> widget;
};

/// Saves a numbered version: the state, its summary, the widget's.
void saveNumbered(const std::filesystem::path& directory, const QuillmereState& state);

/// Loads all three.
Numbers loadNumbered(const std::filesystem::path& directory);

/// How large a version is: 1 kB to 5 MB, each power of ten as often as the next. Always the same for a
/// number.
std::size_t sizeOfVersion(std::uint64_t number);

class SavingProcess {
public:
    /// Saves the versions from `first` on, one after the other.
    SavingProcess(const std::filesystem::path& directory, std::uint64_t first);
    SavingProcess(const SavingProcess&) = delete;
    SavingProcess& operator=(const SavingProcess&) = delete;
    ~SavingProcess();

    /// Waits until the first save has begun.
    void waitForBeginning();

    /// Kills it wherever it is.
    void kill();

    std::uint64_t begun() const { return progress_->begun; }          ///< the last version whose save began
    std::uint64_t completed() const { return progress_->completed; }  ///< the last whose save returned

private:
    struct Progress {
        std::atomic<std::uint64_t> begun;
        std::atomic<std::uint64_t> completed;
    };

    /// In the other process, which ends when a save throws.
    [[noreturn]] void saveForEver(const std::filesystem::path& directory);

    std::uint64_t first_;
    Progress* progress_;  ///< in memory that both processes share
    std::optional<Process> process_;
};

}  // namespace quillmere::test
