#include "base/system/user_directory.hpp"

#include <cstdlib>

namespace quillmere::base {

namespace fs = std::filesystem;

fs::path absolutePathIn(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value && *value == '/' ? fs::path(value) : fs::path();
}

fs::path userDirectory(const char* variable, const char* below)
{
    const fs::path named = absolutePathIn(variable);
    const fs::path home = absolutePathIn("HOME");
    return !named.empty() || home.empty() ? named : home / below;
}

}  // namespace quillmere::base
