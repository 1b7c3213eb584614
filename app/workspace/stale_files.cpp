#include "workspace/stale_files.hpp"

#include "base/system/directory_names.hpp"

#include <quillmere/records/identifier.hpp>

#include <sys/stat.h>

#include <string>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

constexpr double longestSave = 3'600;  // seconds, by far

bool isTemporaryOf(std::string_view name, const std::string& file)
{
    const std::string begin = "." + std::string(name) + ".";
    const std::string_view end = ".tmp";
    return file.starts_with(begin) && file.ends_with(end) &&
           file.size() == begin.size() + Identifier::textLength + end.size() &&
           Identifier::fromText(file.substr(begin.size(), Identifier::textLength)).has_value();
}

bool isOlderThanASave(const fs::path& file, Instant now)
{
    struct stat status;
    return ::lstat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           now - Instant(static_cast<double>(status.st_mtim.tv_sec)) > longestSave;
}

}  // namespace

void removeStaleTemporaries(const fs::path& directory, std::string_view name, Instant now)
{
    std::error_code ignored;
    for (const std::string& found : base::namesInDirectory(directory, ignored)) {
        if (isTemporaryOf(name, found) && isOlderThanASave(directory / found, now)) {
            fs::remove(directory / found, ignored);
        }
    }
}

}  // namespace quillmere::workspace
