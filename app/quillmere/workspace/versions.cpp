#include "workspace/versions.hpp"

#include "text/local_time.hpp"

#include <quillmere/records/json/date_text.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <string>

namespace quillmere::app {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t lastVersions = 10;
constexpr double daysInSeconds = 30 * 86'400.0;

constexpr char separator = '_';
constexpr std::string_view extension = ".json";
constexpr std::size_t digitCount = 6;  // more are taken where they are needed

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
    if (file.extension() != extension || error != std::errc() || number < 1 || name[digits] != separator) {
        return std::nullopt;
    }
    const std::optional<Instant> savedAt = json::instantFromDateText(name.substr(digits + 1));
    return savedAt ? std::optional(Version{.number = number, .savedAt = *savedAt, .file = file})
                   : std::nullopt;
}

}  // namespace

std::vector<Version> Versions::list() const
{
    std::vector<Version> versions;
    if (directory_.empty() || !FileManager::standard().fileExists(directory_)) {
        return versions;
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(directory_)) {
        if (std::optional<Version> version = versionIn(entry.path())) {
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
    constexpr mode_t ownerOnly = 0700;
    fileManager.createDirectory(directory_, ownerOnly);
    const std::vector<Version> earlier = list();
    const std::int64_t number = earlier.empty() ? 1 : earlier.front().number + 1;
    writeAtomically([&](const ByteSink& sink) { sink(content.view()); },
                    directory_ / nameOfVersion(number, savedAt), StateStore::renameReplacingDurably);
    letGo(savedAt);
}

void Versions::letGo(Instant newest) const
{
    std::set<std::string> days;
    std::size_t count = 0;
    for (const Version& version : list()) {
        const bool isRecent = newest - version.savedAt < daysInSeconds;
        const bool isLastOfItsDay = days.insert(localDayText(version.savedAt)).second;
        if (++count > lastVersions && !(isRecent && isLastOfItsDay)) {
            FileManager::standard().removeFile(version.file);
        }
    }
}

}  // namespace quillmere::app
