#include "workspace/retention.hpp"

#include "base/text/local_time.hpp"

#include <algorithm>
#include <string>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t lastVersions = 10;
constexpr std::size_t lastDays = 30;

std::set<fs::path> retainedByAge(std::vector<Version> versions)
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

}  // namespace

std::set<fs::path> retained(const std::vector<Version>& versions, std::uintmax_t room)
{
    std::set<fs::path> kept = retainedByAge(versions);
    std::uintmax_t taken = 0;
    bool fits = true;
    for (const Version& version : versions) {
        if (!kept.contains(version.file)) {
            continue;
        }
        taken += version.size;
        const bool isNewest = version.number == versions.front().number;
        fits = fits && (isNewest || taken <= room);
        if (!fits) {
            kept.erase(version.file);
        }
    }
    return kept;
}

std::uintmax_t roomForVersions(std::uintmax_t stateSize)
{
    constexpr std::uintmax_t least = 64'000'000;
    return std::max(least, 4 * stateSize);
}

}  // namespace quillmere::workspace
