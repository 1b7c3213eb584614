#include "workspace/state_home.hpp"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace quillmere::app {
namespace {

namespace fs = std::filesystem;

/// What an environment variable names, if that is an absolute path.
fs::path absolutePathIn(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value && *value == '/' ? fs::path(value) : fs::path();
}

/// The same on every machine and in every run, unlike std::hash: FNV-1a with 64 bits.
std::string digest(const std::string& text)
{
    std::uint64_t hash = 0xCBF2'9CE4'8422'2325;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100'0000'01B3;
    }
    constexpr std::size_t digitCount = 16;
    std::array<char, digitCount> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), hash, 16).ptr;
    const std::string text16(digits.begin(), end);
    return std::string(digitCount - text16.size(), '0') + text16;
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
    return stateHome.empty() ? fs::path() : stateHome / "quillmere" / digest(directory.string());
}

}  // namespace quillmere::app
