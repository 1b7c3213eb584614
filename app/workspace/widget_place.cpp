#include "workspace/widget_place.hpp"

#include <quillmere/store/file_manager.hpp>
#include <quillmere/widget/app_group.hpp>

#include <sys/stat.h>

namespace quillmere::workspace {

namespace fs = std::filesystem;

std::optional<fs::path> WidgetPlace::existing() const
{
    return chosen_ ? chosen_ : FileManager::standard().containerDirectory(QuillmereAppGroup::identifier);
}

fs::path WidgetPlace::path() const
{
    return chosen_ ? *chosen_ : FileManager::standard().containerPath(QuillmereAppGroup::identifier).value();
}

fs::path WidgetPlace::created() const
{
    return chosen_ ? *chosen_
                   : FileManager::standard().createContainerDirectory(QuillmereAppGroup::identifier);
}

bool WidgetPlace::closeToOthers() const
{
    constexpr mode_t ofOthers = S_IRWXG | S_IRWXO;
    struct stat status;
    return !chosen_ && ::stat(path().c_str(), &status) == 0 && (status.st_mode & ofOthers) != 0 &&
           ::chmod(path().c_str(), status.st_mode & S_IRWXU) == 0;
}

}  // namespace quillmere::workspace
