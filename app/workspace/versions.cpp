#include "workspace/versions.hpp"

#include "base/compression.hpp"
#include "base/system/directory_names.hpp"
#include "base/system/private_directory.hpp"
#include "base/system/private_umask.hpp"
#include "workspace/retention.hpp"
#include "workspace/same_content.hpp"
#include "workspace/screening.hpp"

#include <quillmere/records/json/date_text.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/store/sync.hpp>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

constexpr char separator = '_';
constexpr std::string_view extension = ".json";
constexpr std::string_view extensionOfCompressed = ".json.zst";
constexpr std::size_t digitCount = 6;  // at least; larger numbers have more
/// Files with higher numbers were not made here. Without this bound the next number could overflow.
constexpr std::int64_t highestNumber = 1'000'000'000'000;

/// The newest versions are most likely to be wanted back, and stay whole.
constexpr std::size_t wholeVersions = 3;

std::string nameOfVersion(std::int64_t number, Instant savedAt, std::string_view end)
{
    const std::string digits = std::to_string(number);
    return std::string(digitCount - std::min(digits.size(), digitCount), '0') + digits + separator +
           json::dateText(savedAt) + std::string(end);
}

/// Parses the name of a file; absent when it is not that of a version.
std::optional<Version> versionIn(const fs::path& file)
{
    const std::string name = file.filename().string();
    const bool isCompressed = name.ends_with(extensionOfCompressed);
    const std::string_view end = isCompressed ? extensionOfCompressed : extension;
    std::int64_t number = 0;
    const auto [rest, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const auto digits = static_cast<std::size_t>(rest - name.data());
    if (error != std::errc() || number < 1 || number > highestNumber || !name.ends_with(end) ||
        digits + 1 + end.size() > name.size()) {
        return std::nullopt;
    }
    const std::optional<Instant> savedAt =
        json::instantFromDateText(name.substr(digits + 1, name.size() - digits - 1 - end.size()));
    // Other spellings of the same number and instant are not names of versions.
    if (!savedAt || name != nameOfVersion(number, *savedAt, end)) {
        return std::nullopt;
    }
    return Version{
        .number = number, .savedAt = *savedAt, .file = file, .size = 0, .isCompressed = isCompressed};
}

/// Whether the entry is a regular file, and no link to one.
bool isFile(const fs::path& path)
{
    std::error_code gone;
    return fs::symlink_status(path, gone).type() == fs::file_type::regular;
}

/// Whether the name is that of a temporary file of writeAtomically.
bool isUnfinished(const std::string& name) { return name.starts_with('.') && name.ends_with(".tmp"); }

/// Deletes a file; whether it did does not matter.
void removeIfPossible(const fs::path& file)
{
    std::error_code ignored;
    fs::remove(file, ignored);
}

/// The highest number first. A process that died while it compressed a version has left the whole file too,
/// which then stands first.
bool standsBefore(const Version& left, const Version& right)
{
    return left.number != right.number ? left.number > right.number
                                       : !left.isCompressed && right.isCompressed;
}

/// A second name for a file. False where the system refuses it: another file system, or one without links.
bool couldLink(const fs::path& file, const fs::path& name)
{
    if (::link(file.c_str(), name.c_str()) != 0) {
        return false;
    }
    try {
        syncDirectory(name.parent_path());
    } catch (const std::system_error&) {
        removeIfPossible(name);
        throw;
    }
    return true;
}

void makeCopy(const fs::path& file, const fs::path& name)
{
    const Bytes content = FileManager::standard().contents(file);
    writeAtomically([&](const ByteSink& sink) { sink(content.view()); }, name,
                    StateStore::renameReplacingDurably);
}

std::optional<dev_t> deviceOf(const fs::path& path)
{
    struct stat status;
    return ::stat(path.c_str(), &status) == 0 ? std::optional(status.st_dev) : std::nullopt;
}

Bytes contentOf(const Version& version)
{
    Bytes bytes = FileManager::standard().contents(version.file);
    return version.isCompressed ? base::decompressed(bytes.view()) : std::move(bytes);
}

}  // namespace

std::vector<Version> Versions::list() const
{
    std::vector<Version> versions;
    if (directory_.empty() || !FileManager::standard().fileExists(directory_)) {
        return versions;
    }
    for (const std::string& name : base::namesInDirectory(directory_)) {
        std::optional<Version> version = versionIn(directory_ / name);
        if (version && isFile(version->file)) {
            std::error_code gone;
            version->size = fs::file_size(version->file, gone);
            versions.push_back(*std::move(version));
        }
    }
    std::sort(versions.begin(), versions.end(), standsBefore);
    const auto hasSameNumber = [](const Version& left, const Version& right) {
        return left.number == right.number;
    };
    versions.erase(std::unique(versions.begin(), versions.end(), hasSameNumber), versions.end());
    return versions;
}

std::optional<Version> Versions::newestEqualTo(const fs::path& stateFile, Instant savedAt) const
{
    const std::vector<Version> versions = list();
    const bool isEqual = !versions.empty() && !versions.front().isCompressed &&
                         versions.front().savedAt == savedAt &&
                         haveSameContent(versions.front().file, stateFile);
    return isEqual ? std::optional(versions.front()) : std::nullopt;
}

std::optional<Version> Versions::keep(const fs::path& stateFile, Instant savedAt) const
{
    if (directory_.empty() || !FileManager::standard().fileExists(stateFile)) {
        return std::nullopt;
    }
    const base::PrivateUmask ownersOnly;
    base::createOwnersDirectory(directory_);
    const fs::path file = nextFile(savedAt);
    if (!couldLink(stateFile, file)) {
        makeCopy(stateFile, file);
    }
    return versionIn(file);
}

fs::path Versions::nextFile(Instant savedAt) const
{
    const std::vector<Version> earlier = list();
    const std::int64_t number = earlier.empty() ? 1 : earlier.front().number + 1;
    return directory_ / nameOfVersion(number, savedAt, extension);
}

void Versions::remove(const Version& version) const { removeIfPossible(version.file); }

void Versions::rewrite(const Version& version, const QuillmereState& state) const
{
    const base::PrivateUmask ownersOnly;
    if (version.isCompressed) {
        std::string text;
        StateStore::encoder().source(state)([&](std::string_view piece) { text += piece; });
        const Bytes frame = base::compressed(text);
        writeAtomically([&](const ByteSink& sink) { sink(frame.view()); }, version.file,
                        StateStore::renameReplacingDurably);
    } else {
        writeAtomically(StateStore::encoder().source(state), version.file,
                        StateStore::renameReplacingDurably);
    }
}

void Versions::prune(std::uintmax_t stateSize) const
{
    const std::vector<Version> versions = list();
    const std::set<fs::path> kept = retained(versions, roomForVersions(stateSize));
    for (const Version& version : versions) {
        if (!kept.contains(version.file)) {
            remove(version);
        }
    }
    std::error_code ignored;
    for (const std::string& name : base::namesInDirectory(directory_, ignored)) {
        // Its process has died: only the holder of the lock writes here.
        if (isUnfinished(name) && isFile(directory_ / name)) {
            removeIfPossible(directory_ / name);
        }
    }
}

bool Versions::giveWay(const fs::path& place) const
{
    const std::vector<Version> versions = list();
    std::error_code error;
    return versions.size() > 1 && deviceOf(directory_) == deviceOf(place) &&
           fs::remove(versions.back().file, error);
}

bool Versions::compressOne() const
{
    const std::vector<Version> versions = list();
    const auto older =
        versions.begin() + static_cast<std::ptrdiff_t>(std::min(wholeVersions, versions.size()));
    const auto whole =
        std::find_if(older, versions.end(), [](const Version& version) { return !version.isCompressed; });
    if (whole == versions.end()) {
        return false;
    }
    const base::PrivateUmask ownersOnly;
    const Bytes frame = base::compressed(contentOf(*whole).view());
    writeAtomically([&](const ByteSink& sink) { sink(frame.view()); },
                    directory_ / nameOfVersion(whole->number, whole->savedAt, extensionOfCompressed),
                    StateStore::renameReplacingDurably);
    remove(*whole);
    return true;
}

std::optional<QuillmereState> stateOf(const Version& version)
{
    try {
        QuillmereState state = StateStore::decoder().decode<QuillmereState>(contentOf(version));
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
