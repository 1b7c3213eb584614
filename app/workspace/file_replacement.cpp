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
    const KeptState state = keep(isKept);
    try {
        replaced_.lock.follow(temporary);
        StateStore::renameReplacing(temporary, replaced_.file);
    } catch (const std::system_error&) {
        if (state.kept) {
            versions_.remove(*state.kept);
        }
        throw;
    }
    isStateReplaced_ = true;
    if (state.leftOver && !isKept) {
        versions_.remove(*state.leftOver);
    }
    try {
        syncDirectory(replaced_.file.parent_path());
    } catch (const std::system_error& error) {
        unsynced_ = base::fileErrorText(error);
    }
}

FileReplacement::KeptState FileReplacement::keep(bool isKept)
{
    try {
        KeptState state{.leftOver = versions_.newestEqualTo(replaced_.file, replaced_.savedAt), .kept = {}};
        if (isKept && !state.leftOver) {
            state.kept = versions_.keep(replaced_.file, replaced_.savedAt);
        }
        return state;
    } catch (const std::system_error& error) {
        if (replaced_.keeping == Keeping::necessarily) {
            throw;
        }
        // The change matters more to the person than the way back from it.
        unkept_ = isKept ? base::fileErrorText(error) : "";
        return {};
    }
}

}  // namespace quillmere::workspace
