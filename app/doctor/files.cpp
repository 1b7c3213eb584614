#include "doctor/files.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <algorithm>
#include <system_error>

namespace quillmere::doctor {
namespace {

namespace fs = std::filesystem;

void addIfExisting(std::vector<fs::path>& paths, const fs::path& path)
{
    std::error_code isMissing;
    if (fs::exists(path, isMissing) && std::find(paths.begin(), paths.end(), path) == paths.end()) {
        paths.push_back(path);
    }
}

StateStore storeOf(const Subject& subject) { return {subject.directory(), StateStore::renameReplacing}; }

}  // namespace

fs::path stateFile(const Subject& subject) { return storeOf(subject).stateURL(); }

std::vector<fs::path> summaryFiles(const Subject& subject)
{
    return {storeOf(subject).agentStateURL(),
            WidgetSnapshotStore(subject.workspace.widgetPlace()).snapshotURL()};
}

std::vector<fs::path> ownDirectories(const Subject& subject)
{
    std::vector<fs::path> directories;
    addIfExisting(directories, subject.directory());
    addIfExisting(directories, subject.workspace.widgetPlace());
    if (!subject.workspace.stateDirectory().empty()) {
        addIfExisting(directories, subject.workspace.stateDirectory());
    }
    return directories;
}

std::vector<fs::path> ownFiles(const Subject& subject)
{
    std::vector<fs::path> files;
    addIfExisting(files, stateFile(subject));
    for (const fs::path& summary : summaryFiles(subject)) {
        addIfExisting(files, summary);
    }
    return files;
}

std::vector<fs::path> ownPaths(const Subject& subject)
{
    std::vector<fs::path> paths = ownDirectories(subject);
    for (const fs::path& file : ownFiles(subject)) {
        paths.push_back(file);
    }
    return paths;
}

}  // namespace quillmere::doctor
