#include "workspace/state_home.hpp"

#include "base/text/digest.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

/// The value of an environment variable if it is an absolute path; otherwise empty.
fs::path absolutePathIn(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value && *value == '/' ? fs::path(value) : fs::path();
}

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

fs::path stateHomeOfThisUser()
{
    const fs::path named = absolutePathIn("XDG_STATE_HOME");
    const fs::path home = absolutePathIn("HOME");
    return !named.empty() || home.empty() ? named : home / ".local/state";
}

fs::path stateDirectory(const fs::path& directory, const fs::path& stateHome)
{
    const fs::path files = withoutLinks(directory);
    // A path cannot be a file name, but its digest can, whatever the length and the bytes of the path.
    const fs::path place = stateHome / "quillmere" / base::digest(files.string());
    return stateHome.empty() || isWithin(withoutLinks(place), files) ? fs::path() : place;
}

}  // namespace quillmere::workspace
