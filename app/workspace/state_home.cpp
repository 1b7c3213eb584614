#include "workspace/state_home.hpp"

#include "base/system/user_directory.hpp"
#include "base/text/digest.hpp"

#include <algorithm>
#include <string>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

/// The path with links resolved; parts that do not exist are kept as they are.
fs::path withoutLinks(const fs::path& path)
{
    std::error_code error;
    fs::path real = fs::canonical(path, error);
    if (!error || !path.has_relative_path()) {
        return error ? path : real;
    }
    return withoutLinks(path.parent_path()) / path.filename();
}

bool isWithin(const fs::path& path, const fs::path& directory)
{
    const auto [rest, ignored] = std::mismatch(directory.begin(), directory.end(), path.begin(), path.end());
    return rest == directory.end();
}

}  // namespace

fs::path stateHomeOfThisUser() { return base::userDirectory("XDG_STATE_HOME", ".local/state"); }

fs::path stateDirectory(const fs::path& directory, const fs::path& stateHome)
{
    const fs::path files = withoutLinks(directory);
    // A path cannot be a file name, but its digest can, whatever the length and the bytes of the path.
    const fs::path place = stateHome / "quillmere" / base::digest(files.string());
    return stateHome.empty() || isWithin(withoutLinks(place), files) ? fs::path() : place;
}

}  // namespace quillmere::workspace
