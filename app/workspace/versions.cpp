#include "workspace/versions.hpp"

#include "base/system/private_directory.hpp"
#include "base/text/local_time.hpp"

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
constexpr std::size_t digitCount = 6;  // more are taken where they are needed
// Nobody gets there by changes; by a name that somebody made up, counting on might overflow.
constexpr std::int64_t highestNumber = 1'000'000'000'000;

std::string nameOfVersion(std::int64_t number, Instant savedAt)
{
    const std::string digits = std::to_string(number);
    std::string date(json::dateTextLength, ' ');
    json::putDateText(date.data(), savedAt);
    return std::string(digitCount - std::min(digits.size(), digitCount), '0') + digits + separator + date +
           std::string(extension);
}

/// The version that a file is by its name; absent when it is none.
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
    // The same number and instant can be spelt in other ways, which would be other files.
    if (!savedAt || file.filename() != nameOfVersion(number, *savedAt)) {
        return std::nullopt;
    }
    return Version{.number = number, .savedAt = *savedAt, .file = file};
}

/// Whether it is a file by itself, which a link is not.
bool isFile(const fs::directory_entry& entry)
{
    std::error_code gone;
    return !entry.is_symlink(gone) && entry.is_regular_file(gone);
}

/// Whether a name is one that files have while they are written (writeAtomically).
bool isUnfinished(const std::string& name) { return name.starts_with('.') && name.ends_with(".tmp"); }

/// Those that are kept, of a list from the newest.
std::set<fs::path> keptOf(std::vector<Version> versions)
{
    std::set<fs::path> kept;
    for (const Version& version : versions) {
        if (kept.size() < lastVersions) {
            kept.insert(version.file);
        }
    }
    // A version that was brought back has a higher number than what came after it on its day.
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

/// What cannot be removed is one too many, and no more.
void removeIfPossible(const fs::path& file)
{
    std::error_code nobodyIsTold;
    fs::remove(file, nobodyIsTold);
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
    const std::set<fs::path> kept = keptOf(versions);
    for (const Version& version : versions) {
        if (!kept.contains(version.file)) {
            removeIfPossible(version.file);
        }
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(directory_)) {
        // Whoever began it is dead: nobody else keeps versions now.
        if (isUnfinished(entry.path().filename().string()) && isFile(entry)) {
            removeIfPossible(entry.path());
        }
    }
}

}  // namespace quillmere::workspace
