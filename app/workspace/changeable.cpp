#include "workspace/changeable.hpp"

#include "base/refusal.hpp"

#include <quillmere/records/identifier.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <algorithm>
#include <climits>
#include <string>
#include <string_view>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

/// The longest name beside the state file: ".widget-snapshot.json.UUID.tmp".
constexpr std::size_t longestName = std::string_view(".").size() + WidgetSnapshotStore::fileName.size() +
                                    std::string_view(".").size() + Identifier::textLength +
                                    std::string_view(".tmp").size();

void requireRoomForNames(const fs::path& stateFile)
{
    const fs::path directory = stateFile.parent_path();
    const bool isWhole = directory.string().size() + 1 + longestName < PATH_MAX;
    const bool isPossible = std::all_of(directory.begin(), directory.end(), [](const fs::path& part) {
        return part.string().size() <= NAME_MAX;
    });
    if (!isWhole || !isPossible) {
        throw fs::filesystem_error("mkdir", directory, std::make_error_code(std::errc::filename_too_long));
    }
}

void requireNoLink(const fs::path& stateFile)
{
    std::error_code error;
    if (!fs::is_symlink(stateFile, error)) {
        return;
    }
    const fs::path target = fs::read_symlink(stateFile, error);
    const fs::path directory = (stateFile.parent_path() / target).lexically_normal().parent_path();
    throw base::Refusal(base::Refusal::Kind::fileError,
                        stateFile.string() + " is a link to " + target.string() +
                            ", and a change would replace the link by a file. Use --directory " +
                            directory.string() + ", or make the directory " +
                            stateFile.parent_path().string() + " the link instead. Looking works as it is.");
}

}  // namespace

void requireChangeable(const fs::path& stateFile)
{
    requireRoomForNames(stateFile);
    requireNoLink(stateFile);
}

}  // namespace quillmere::workspace
