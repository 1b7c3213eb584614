#include "workspace/undo_place.hpp"

#include "base/system/private_directory.hpp"
#include "base/system/private_umask.hpp"
#include "base/system/replace_file.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/store/file_manager.hpp>

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>

namespace quillmere::workspace {
namespace {

using Json = nlohmann::json;

constexpr std::string_view fileName = "undo.json";

constexpr const char* newestKey = "newest";
constexpr const char* targetKey = "target";
constexpr const char* undoneKey = "undone";
constexpr const char* redoableKey = "redo";

/// Numbers as high as those of versions. Zero stands for no version.
bool isNumber(const Json& json)
{
    constexpr std::int64_t highest = 1'000'000'000'000;
    return json.is_number_integer() && json >= 0 && json <= highest;
}

bool areNumbers(const Json& json)
{
    return json.is_array() && std::all_of(json.begin(), json.end(), isNumber);
}

bool isRange(const Json& json) { return areNumbers(json) && json.size() == 2 && json[0] <= json[1]; }

bool areRanges(const Json& json) { return json.is_array() && std::all_of(json.begin(), json.end(), isRange); }

bool isPlace(const Json& json)
{
    // Anything but an object contains no key.
    const auto has = [&](const char* key, const auto& isRight) {
        return json.contains(key) && isRight(json[key]);
    };
    return has(newestKey, isNumber) && has(targetKey, isNumber) && has(undoneKey, areRanges) &&
           has(redoableKey, areNumbers);
}

UndoPlace placeFrom(const Json& json)
{
    UndoPlace place;
    if (!isPlace(json)) {
        return place;
    }
    place.newest = json[newestKey];
    place.target = json[targetKey];
    for (const Json& range : json[undoneKey]) {
        place.undone.push_back({.first = range[0], .last = range[1]});
    }
    place.redoable = json[redoableKey].get<std::vector<std::int64_t>>();
    return place;
}

Json jsonOf(const UndoPlace& place)
{
    Json undone = Json::array();
    for (const VersionRange& range : place.undone) {
        undone.push_back({range.first, range.last});
    }
    return {{newestKey, place.newest},
            {targetKey, place.target},
            {undoneKey, std::move(undone)},
            {redoableKey, place.redoable}};
}

}  // namespace

std::string jsonTextOf(const UndoPlace& place) { return jsonOf(place).dump() + '\n'; }

UndoPlace undoPlaceFrom(std::string_view text) { return placeFrom(Json::parse(text, nullptr, false)); }

bool UndoPlace::isUndone(std::int64_t number) const
{
    return std::any_of(undone.begin(), undone.end(), [number](const VersionRange& range) {
        return range.first <= number && number <= range.last;
    });
}

void UndoPlace::noteUndo(std::int64_t version, std::int64_t kept)
{
    VersionRange passed{.first = version, .last = kept};
    // All versions above it are undone. A range that ends just below it is continued.
    while (!undone.empty() && undone.back().last + 1 >= version) {
        passed.first = std::min(passed.first, undone.back().first);
        undone.pop_back();
    }
    undone.push_back(passed);
    redoable.push_back(kept);
    target = version;
    newest = kept;
}

void UndoPlace::noteRedo(std::int64_t kept)
{
    target = redoable.back();
    redoable.pop_back();
    newest = kept;
}

UndoPlace UndoPlaceFile::read() const
{
    if (directory_.empty()) {
        return {};
    }
    try {
        return undoPlaceFrom(FileManager::standard().contents(directory_ / fileName).view());
    } catch (const std::system_error&) {
        return {};
    }
}

void UndoPlaceFile::write(const UndoPlace& place) const
{
    if (directory_.empty()) {
        return;
    }
    const base::PrivateUmask ownersOnly;
    base::createOwnersDirectory(directory_);
    const std::string text = jsonTextOf(place);
    base::replaceOwnFile(directory_ / fileName, text);
}

}  // namespace quillmere::workspace
