#include "workspace/file_replacement.hpp"

#include "base/text/failure.hpp"
#include "workspace/same_content.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/store/sync.hpp>

#include <sys/stat.h>

#include <cerrno>
#include <system_error>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

/// Sets mode 0600. A file system without modes may refuse; its files have the mode of its mount.
void closeToOthers(const fs::path& file)
{
    if (::chmod(file.c_str(), S_IRUSR | S_IWUSR) != 0 && errno != EPERM && errno != ENOTSUP &&
        errno != ENOSYS) {
        throw fs::filesystem_error("chmod", file, {errno, std::generic_category()});
    }
}

}  // namespace

void FileReplacement::operator()(const fs::path& temporary, const fs::path& destination)
{
    closeToOthers(temporary);
    if (destination == replaced_.file) {
        replaceState(temporary);
    } else {
        StateStore::renameReplacingDurably(temporary, destination);
    }
}

void FileReplacement::replaceState(const fs::path& temporary)
{
    syncFile(temporary);
    const bool isKept = replaced_.keeping != Keeping::no && !haveSameContent(temporary, replaced_.file);
    // Kept by a save that was killed before its rename.
    const std::optional<Version> leftOver = versions_.newestEqualTo(replaced_.file, replaced_.savedAt);
    const std::optional<Version> kept = isKept && !leftOver ? keep() : std::nullopt;
    try {
        replaced_.lock.follow(temporary);
        StateStore::renameReplacing(temporary, replaced_.file);
    } catch (const std::system_error&) {
        if (kept) {
            versions_.remove(*kept);
        }
        throw;
    }
    isStateReplaced_ = true;
    if (leftOver && !isKept) {
        versions_.remove(*leftOver);
    }
    try {
        syncDirectory(replaced_.file.parent_path());
    } catch (const std::system_error& error) {
        unsynced_ = base::fileErrorText(error);
    }
}

std::optional<Version> FileReplacement::keep()
{
    try {
        return versions_.keep(replaced_.file, replaced_.savedAt);
    } catch (const std::system_error& error) {
        if (replaced_.keeping == Keeping::necessarily) {
            throw;
        }
        // The change matters more to the person than the way back from it.
        unkept_ = base::fileErrorText(error);
        return std::nullopt;
    }
}

}  // namespace quillmere::workspace
