#include "doctor/file_system_findings.hpp"

#include "base/text/count.hpp"
#include "doctor/words.hpp"

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>

namespace quillmere::doctor {
namespace {

constexpr const char* moveAway =
    "Keep the files on another file system: with --directory, or by XDG_DATA_HOME.";

std::string reasonFor(int error) { return std::generic_category().message(error); }

/// Bytes for the three files of a small state and a version.
constexpr std::uintmax_t leastRoom = 16'384;
/// Bytes with room for versions.
constexpr std::uintmax_t comfortableRoom = 64'000'000;
constexpr std::uintmax_t comfortableStates = 4;
/// A save makes a file for each of the three, and a version.
constexpr std::uintmax_t filesOfASave = 4;
constexpr std::uintmax_t comfortableFiles = 100;

/// Whether the file system does not offer fsync(2) of a directory (rather than failing).
bool isSyncNotOffered(int error) { return error == EINVAL || error == EOPNOTSUPP || error == EACCES; }

Finding withoutFlock(const Probe& probe)
{
    const std::string text = "flock is not offered here (" + reasonFor(*probe.lock) + ")";
    if (probe.fileLock == 0) {
        return look(text + "; programs lock state.json instead (F_OFD_SETLK).",
                    "Nothing to do. Over a network, change the state from one machine at a time.");
    }
    return wrong(text + ", and no other lock is. Changes are refused; looking works.", moveAway);
}

}  // namespace

std::optional<Finding> lockFinding(const Examined& examined)
{
    if (!examined.probe || !examined.probe->lock) {
        return std::nullopt;
    }
    const int error = *examined.probe->lock;
    if (isLockNotOffered(error)) {
        return withoutFlock(*examined.probe);
    }
    if (error == EWOULDBLOCK) {
        return look("Another program holds the lock at this moment.",
                    "Look again. If it stays, a program hangs: the list of locks has its number.", "lslocks");
    }
    return error == 0 ? good("Programs take turns (flock).")
                      : wrong("The directory cannot be locked: " + reasonFor(error) +
                                  ". Changes are refused; looking works.",
                              moveAway);
}

std::optional<Finding> syncFinding(const Examined& examined)
{
    if (!examined.probe || !examined.probe->syncFile) {
        return std::nullopt;
    }
    if (const int error = *examined.probe->syncFile; error != 0) {
        return wrong("A file cannot be synced to the disk: " + reasonFor(error) + ". Changes fail.",
                     moveAway);
    }
    const int error = examined.probe->syncDirectory.value_or(0);
    if (error == 0) {
        return good("A change survives a power cut (fsync of file and directory).");
    }
    if (isSyncNotOffered(error)) {
        return look("fsync of a directory is not offered here (" + reasonFor(error) +
                        "): after a power cut the last change may be missing. Files stay whole.",
                    "Nothing to do, or keep the files on another file system.");
    }
    return wrong("The directory cannot be synced to the disk: " + reasonFor(error) + ". Changes fail.",
                 moveAway);
}

std::optional<Finding> replaceFinding(const Examined& examined)
{
    if (!examined.probe || !examined.probe->replace) {
        return std::nullopt;
    }
    const int error = *examined.probe->replace;
    return error == 0 ? good("A file is replaced in one step.")
                      : wrong("A file cannot be replaced by another: " + reasonFor(error) + ". Changes fail.",
                              moveAway);
}

std::optional<Finding> hardLinkFinding(const Examined& examined)
{
    if (!examined.probe || !examined.probe->hardLink) {
        return std::nullopt;
    }
    const int error = *examined.probe->hardLink;
    return error == 0 ? good("A version is kept without copying it.")
                      : look("No hard link can be made to where versions are kept (" + reasonFor(error) +
                                 "): versions are copied, which takes longer.",
                             "Nothing to do.");
}

std::optional<Finding> roomFinding(const Examined& examined)
{
    return findingOn(roomAt(nearestExisting(examined.subject.directory())), examined.reading.size);
}

Finding findingOn(const Room& room, std::uintmax_t stateSize)
{
    const std::string text = "Free: " + sizeText(room.bytes);
    const char* const makeRoom = "Delete what is not needed from this file system.";
    if (room.files < filesOfASave || room.bytes < std::max(leastRoom, stateSize)) {
        return wrong((room.files < filesOfASave ? "No more files can be made here" : text) +
                         ", which is too little for a change.",
                     makeRoom, "df -h -i");
    }
    if (room.files < comfortableFiles) {
        return look("Only " + base::countText(static_cast<std::int64_t>(room.files), "more file") +
                        " can be made here.",
                    makeRoom, "df -h -i");
    }
    if (room.bytes < std::max(comfortableRoom, comfortableStates * stateSize)) {
        return look(text + ", which is little for versions.", makeRoom, "df -h");
    }
    return good(text + ".");
}

}  // namespace quillmere::doctor
