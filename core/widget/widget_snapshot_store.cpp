#include <quillmere/store/atomic_write.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <system_error>
#include <utility>

namespace quillmere {
namespace {

/// The summary in the file; absent when there is no file.
std::optional<WidgetSnapshot> read(const std::filesystem::path& path)
{
    const FileManager& fileManager = FileManager::standard();
    if (!fileManager.fileExists(path)) {
        return std::nullopt;
    }
    return JsonDecoder().decode<WidgetSnapshot>(fileManager.contents(path));
}

}  // namespace

const char* WidgetSnapshotLoadError::what() const noexcept
{
    switch (reason_) {
        case unsupportedSchemaVersion: return "unsupportedSchemaVersion";
        case containerUnavailable: return "containerUnavailable";
        case notWritten: return "notWritten";
        case unreadable: return "unreadable";
    }
    fatalError("quillmere: an enumeration holds a value that is none of its cases");
}

WidgetSnapshotStore::WidgetSnapshotStore(std::filesystem::path directory, ReplaceItem replaceItem)
    : directory_(std::move(directory)),
      snapshotURL_(directory_ / fileName),
      replaceItem_(std::move(replaceItem))
{
}

std::optional<WidgetSnapshotStore> WidgetSnapshotStore::shared(std::string_view groupIdentifier,
                                                               const FileManager& fileManager)
{
    std::optional<std::filesystem::path> container = fileManager.containerDirectory(groupIdentifier);
    if (!container) {
        return std::nullopt;
    }
    return WidgetSnapshotStore(*std::move(container));
}

void WidgetSnapshotStore::save(const WidgetSnapshot& snapshot) const
{
    FileManager::standard().createDirectory(directory_, std::nullopt);
    writeAtomically(JsonEncoder(JsonLayout::compact).source(snapshot), snapshotURL_, replaceItem_);
}

WidgetSnapshot WidgetSnapshotStore::load() const
{
    std::optional<WidgetSnapshot> snapshot;
    try {
        snapshot = read(snapshotURL_);
    } catch (const std::system_error&) {
        throw WidgetSnapshotLoadError::of<WidgetSnapshotLoadError::unreadable>();
    } catch (const DecodingError&) {
        throw WidgetSnapshotLoadError::of<WidgetSnapshotLoadError::unreadable>();
    }
    if (!snapshot) {
        throw WidgetSnapshotLoadError::of<WidgetSnapshotLoadError::notWritten>();
    }
    if (snapshot->schemaVersion > WidgetSnapshot::currentSchemaVersion) {
        throw WidgetSnapshotLoadError::unsupported(snapshot->schemaVersion,
                                                   WidgetSnapshot::currentSchemaVersion);
    }
    return *std::move(snapshot);
}

void WidgetSnapshotStore::renameReplacing(const std::filesystem::path& temporaryURL,
                                          const std::filesystem::path& destination)
{
    StateStore::renameReplacing(temporaryURL, destination);
}

}  // namespace quillmere
