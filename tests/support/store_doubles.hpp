// Test doubles for the dependencies of the stores.
#pragma once

#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/temporary_directory.hpp"

namespace quillmere::test {

/// Returns the given places and throws at every other call.
class PlacesOnly final : public FileManager {
public:
    std::vector<std::filesystem::path> supportDirectories;
    std::optional<std::filesystem::path> container;
    mutable std::vector<std::string> groupsAskedFor;

    std::vector<std::filesystem::path> applicationSupportDirectories() const override
    {
        return supportDirectories;
    }
    std::optional<std::filesystem::path> containerPath(std::string_view) const override { refuse(); }
    std::optional<std::filesystem::path> containerDirectory(std::string_view group) const override
    {
        groupsAskedFor.emplace_back(group);
        return container;
    }
    std::filesystem::path createContainerDirectory(std::string_view) const override { refuse(); }
    bool fileExists(const std::filesystem::path&) const override { refuse(); }
    Bytes contents(const std::filesystem::path&) const override { refuse(); }
    void writeWithoutOverwriting(const std::filesystem::path&, const ByteSource&) const override { refuse(); }
    void createDirectory(const std::filesystem::path&, std::optional<mode_t>) const override { refuse(); }
    void removeFile(const std::filesystem::path&) const override { refuse(); }

private:
    [[noreturn]] static void refuse() { throw std::logic_error("the file system must not be touched"); }
};

/// Thrown by a failing double. The library never throws it.
struct InjectedFailure : std::runtime_error {
    InjectedFailure() : std::runtime_error("injected") {}
};

/// The arguments of one call of `replaceItem`, and the directory at that time.
struct Replacement {
    std::filesystem::path temporary;
    std::filesystem::path destination;
    std::string content;                   ///< of the temporary file
    std::vector<std::string> namesAround;  ///< names in the directory of the destination
};

/// A `replaceItem` that records its calls and moves the file, except for the calls that must fail. Copies
/// share one record.
class RecordingReplaceItem {
public:
    /// The number of the failing call, counted from 1; 0 for none.
    explicit RecordingReplaceItem(std::size_t failingCall = 0) : failingCall_(failingCall) {}

    void operator()(const std::filesystem::path& temporaryURL, const std::filesystem::path& destination) const
    {
        calls_->push_back({.temporary = temporaryURL,
                           .destination = destination,
                           .content = textOf(temporaryURL),
                           .namesAround = namesIn(destination.parent_path())});
        if (calls_->size() == failingCall_) {
            throw InjectedFailure();
        }
        StateStore::renameReplacing(temporaryURL, destination);
    }

    const std::vector<Replacement>& calls() const { return *calls_; }

private:
    std::size_t failingCall_;
    std::shared_ptr<std::vector<Replacement>> calls_ = std::make_shared<std::vector<Replacement>>();
};

/// A stopped clock that counts its readings. Copies share the count.
class StandingClock {
public:
    explicit StandingClock(Instant instant) : instant_(instant) {}

    Instant operator()() const
    {
        ++*readings_;
        return instant_;
    }
    int readings() const { return *readings_; }

private:
    Instant instant_;
    std::shared_ptr<int> readings_ = std::make_shared<int>(0);
};

}  // namespace quillmere::test
