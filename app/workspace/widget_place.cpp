#include "workspace/widget_place.hpp"

#include <quillmere/store/file_manager.hpp>
#include <quillmere/widget/app_group.hpp>

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

}  // namespace quillmere::workspace
