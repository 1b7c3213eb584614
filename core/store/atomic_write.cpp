#include <quillmere/records/identifier.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/file_manager.hpp>

#include <string>
#include <system_error>

namespace quillmere {
namespace {

std::filesystem::path temporaryURL(const std::filesystem::path& destination)
{
    const std::string name =
        "." + destination.filename().string() + "." + Identifier::random().text() + ".tmp";
    return destination.parent_path() / name;
}

/// Removes a file at the end of the scope. Errors are ignored: after a move there is no file to remove.
class RemovalGuard {
public:
    explicit RemovalGuard(const std::filesystem::path& path) : path_(path) {}
    RemovalGuard(const RemovalGuard&) = delete;
    RemovalGuard& operator=(const RemovalGuard&) = delete;
    ~RemovalGuard()
    {
        try {
            FileManager::standard().removeFile(path_);
        } catch (const std::exception&) {
        }
    }

private:
    const std::filesystem::path& path_;
};

}  // namespace

void writeAtomically(const ByteSource& content, const std::filesystem::path& destination,
                     const ReplaceItem& replaceItem)
{
    const std::filesystem::path temporary = temporaryURL(destination);
    const RemovalGuard guard(temporary);
    FileManager::standard().writeWithoutOverwriting(temporary, content);
    replaceItem(temporary, destination);
}

}  // namespace quillmere
