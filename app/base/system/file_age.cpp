#include "base/system/file_age.hpp"

#include <quillmere/store/wall_clock.hpp>

#include <sys/stat.h>

namespace quillmere::base {

std::optional<double> secondsSinceWritten(const std::filesystem::path& file)
{
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return wallClock() - Instant(static_cast<double>(status.st_mtim.tv_sec));
}

}  // namespace quillmere::base
