#include "workspace/state_home.hpp"

#include "text/digest.hpp"

#include <cstdlib>
#include <string>
#include <system_error>

namespace quillmere::app {
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

}  // namespace

fs::path stateHomeOfThisUser()
{
    const fs::path named = absolutePathIn("XDG_STATE_HOME");
    const fs::path home = absolutePathIn("HOME");
    return !named.empty() || home.empty() ? named : home / ".local/state";
}

fs::path keptBeside(const fs::path& directory, const fs::path& stateHome)
{
    // A whole path is no file name; its digest is one, of any length and of any bytes.
    return stateHome.empty() ? fs::path()
                             : stateHome / "quillmere" / digest(withoutLinks(directory).string());
}

}  // namespace quillmere::app
