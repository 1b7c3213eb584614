#include "base/system/private_directory.hpp"

#include <quillmere/store/file_manager.hpp>

namespace quillmere::base {

void createOwnersDirectory(const std::filesystem::path& directory)
{
    const FileManager& fileManager = FileManager::standard();
    const std::filesystem::path parent = directory.parent_path();
    if (parent != directory && !fileManager.fileExists(parent)) {
        createOwnersDirectory(parent);
    }
    constexpr mode_t ownerOnly = 0700;
    fileManager.createDirectory(directory, ownerOnly);
}

}  // namespace quillmere::base
