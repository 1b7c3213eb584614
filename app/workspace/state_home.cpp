#include "workspace/state_home.hpp"

#include "base/text/digest.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

/// What an environment variable names, if that is an absolute path.
fs::path absolutePathIn(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value && *value == '/' ? fs::path(value) : fs::path();
}

/// The path without links, as far as it leads anywhere.
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
    // A whole path is no file name; its digest is one, of any length and of any bytes.
    const fs::path place = stateHome / "quillmere" / base::digest(files.string());
    return stateHome.empty() || isWithin(withoutLinks(place), files) ? fs::path() : place;
}

}  // namespace quillmere::workspace
