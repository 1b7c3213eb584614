#include "workspace/versions.hpp"

#include "base/system/private_directory.hpp"
#include "base/text/local_time.hpp"
#include "workspace/screening.hpp"

#include <quillmere/records/json/date_text.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <string>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t lastVersions = 10;
constexpr std::size_t lastDays = 30;

constexpr char separator = '_';
constexpr std::string_view extension = ".json";
constexpr std::size_t digitCount = 6;  // at least; larger numbers have more
/// Files with higher numbers were not made here. Without this bound the next number could overflow.
constexpr std::int64_t highestNumber = 1'000'000'000'000;

std::string nameOfVersion(std::int64_t number, Instant savedAt)
{
    const std::string digits = std::to_string(number);
    return std::string(digitCount - std::min(digits.size(), digitCount), '0') + digits + separator +
           json::dateText(savedAt) + std::string(extension);
}

/// Parses the name of a file; absent when it is not that of a version.
std::optional<Version> versionIn(const fs::path& file)
{
    const std::string name = file.stem().string();
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const auto digits = static_cast<std::size_t>(end - name.data());
    if (error != std::errc() || number < 1 || number > highestNumber || name[digits] != separator) {
        return std::nullopt;
    }
    const std::optional<Instant> savedAt = json::instantFromDateText(name.substr(digits + 1));
    // Other spellings of the same number and instant are not names of versions.
    if (!savedAt || file.filename() != nameOfVersion(number, *savedAt)) {
        return std::nullopt;
    }
    return Version{.number = number, .savedAt = *savedAt, .file = file};
}

/// Whether the entry is a regular file, and no link to one.
bool isFile(const fs::directory_entry& entry)
{
    std::error_code gone;
    return !entry.is_symlink(gone) && entry.is_regular_file(gone);
}

/// Whether the name is that of a temporary file of writeAtomically.
bool isUnfinished(const std::string& name) { return name.starts_with('.') && name.ends_with(".tmp"); }

/// The files to retain, of versions with the highest number first.
std::set<fs::path> retained(std::vector<Version> versions)
{
    std::set<fs::path> kept;
    for (const Version& version : versions) {
        if (kept.size() < lastVersions) {
            kept.insert(version.file);
        }
    }
    // By time, not by number: after the clock was set back, higher numbers have earlier times.
    std::stable_sort(versions.begin(), versions.end(),
                     [](const Version& left, const Version& right) { return left.savedAt > right.savedAt; });
    std::set<std::string> days;
    for (const Version& version : versions) {
        if (days.insert(base::localDayText(version.savedAt)).second && days.size() <= lastDays) {
            kept.insert(version.file);
        }
    }
    return kept;
}

void removeIfPossible(const fs::path& file)
{
    std::error_code ignored;
    fs::remove(file, ignored);
}

}  // namespace

std::vector<Version> Versions::list() const
{
    std::vector<Version> versions;
    if (directory_.empty() || !FileManager::standard().fileExists(directory_)) {
        return versions;
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(directory_)) {
        std::optional<Version> version = versionIn(entry.path());
        if (version && isFile(entry)) {
            versions.push_back(*std::move(version));
        }
    }
    std::sort(versions.begin(), versions.end(),
              [](const Version& left, const Version& right) { return left.number > right.number; });
    return versions;
}

void Versions::keep(const fs::path& stateFile, Instant savedAt) const
{
    const FileManager& fileManager = FileManager::standard();
    if (directory_.empty() || !fileManager.fileExists(stateFile)) {
        return;
    }
    const Bytes content = fileManager.contents(stateFile);
    base::createOwnersDirectory(directory_);
    const std::vector<Version> earlier = list();
    const std::int64_t number = earlier.empty() ? 1 : earlier.front().number + 1;
    writeAtomically([&](const ByteSink& sink) { sink(content.view()); },
                    directory_ / nameOfVersion(number, savedAt), StateStore::renameReplacingDurably);
    prune();
}

void Versions::prune() const
{
    const std::vector<Version> versions = list();
    const std::set<fs::path> kept = retained(versions);
    for (const Version& version : versions) {
        if (!kept.contains(version.file)) {
            removeIfPossible(version.file);
        }
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(directory_)) {
        // Its process has died: only the holder of the lock writes here.
        if (isUnfinished(entry.path().filename().string()) && isFile(entry)) {
            removeIfPossible(entry.path());
        }
    }
}

std::optional<QuillmereState> stateOf(const Version& version)
{
    try {
        QuillmereState state =
            StateStore::decoder().decode<QuillmereState>(FileManager::standard().contents(version.file));
        requireUsable(state);
        return state;
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::no_such_file_or_directory) {
            return std::nullopt;
        }
        throw;
    }
}

}  // namespace quillmere::workspace
