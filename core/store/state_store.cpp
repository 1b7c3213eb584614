#include <quillmere/records/base/fatal_error.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/store/wall_clock.hpp>

#include <utility>

namespace quillmere {
namespace {

constexpr mode_t ownerOnly = 0700;

}  // namespace

StateStore::StateStore(std::filesystem::path directory, Clock now, ReplaceItem replaceItem)
    : directory_(std::move(directory)),
      stateURL_(directory_ / "state.json"),
      agentStateURL_(directory_ / "agent-state.json"),
      replaceItem_(std::move(replaceItem)),
      now_(std::move(now))
{
}

StateStore::StateStore(std::filesystem::path directory, ReplaceItem replaceItem)
    : StateStore(std::move(directory), wallClock, std::move(replaceItem))
{
}

std::filesystem::path StateStore::defaultDirectory(const FileManager& fileManager)
{
    const std::vector<std::filesystem::path> directories = fileManager.applicationSupportDirectories();
    if (directories.empty()) {
        fatalError("quillmere: there is no application-support directory");
    }
    return directories.front() / "Quillmere";
}

JsonEncoder StateStore::encoder() { return JsonEncoder(JsonLayout::pretty); }

JsonDecoder StateStore::decoder() { return JsonDecoder(); }

QuillmereState StateStore::load() const
{
    const FileManager& fileManager = FileManager::standard();
    if (!fileManager.fileExists(stateURL_)) {
        return QuillmereState::initial(now_());
    }
    return decoder().decode<QuillmereState>(fileManager.contents(stateURL_));
}

void StateStore::save(const QuillmereState& state) const
{
    createDirectoryIfNeeded();
    write(encoder().source(state), stateURL_);
    saveAgentSnapshot(state, state.updatedAt);
}

void StateStore::saveAgentSnapshot(const QuillmereState& state, Instant at) const
{
    createDirectoryIfNeeded();
    const AgentSnapshot snapshot = agentSnapshot(state, at);
    write(encoder().source(snapshot), agentStateURL_);
}

void StateStore::createDirectoryIfNeeded() const
{
    FileManager::standard().createDirectory(directory_, ownerOnly);
}

void StateStore::write(const ByteSource& content, const std::filesystem::path& destination) const
{
    writeAtomically(content, destination, replaceItem_);
}

}  // namespace quillmere
