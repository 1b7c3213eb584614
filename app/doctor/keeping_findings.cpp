#include "doctor/keeping_findings.hpp"

#include "base/refusal.hpp"
#include "base/system/descriptor.hpp"
#include "base/text/count.hpp"
#include "base/text/failure.hpp"
#include "base/text/local_time.hpp"
#include "doctor/file_system.hpp"
#include "doctor/words.hpp"
#include "workspace/leader_lock.hpp"

#include <quillmere/records/json/coding_error.hpp>

#include <sys/inotify.h>

#include <cerrno>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

namespace quillmere::doctor {
namespace {

namespace fs = std::filesystem;

Finding withoutVersions(const Subject& subject)
{
    if (subject.stateHome.empty()) {
        return look("No versions are kept: no directory for them is known.",
                    "Set XDG_STATE_HOME, or HOME, to an absolute path.");
    }
    return look("No versions are kept: their directory, " + (subject.stateHome / "quillmere").string() +
                    ", lies in the directory of the files.",
                "Set XDG_STATE_HOME to another one.");
}

/// Why a version cannot be restored; empty when it can.
std::string failureToRead(const workspace::Version& version)
{
    try {
        workspace::stateOf(version);
    } catch (const std::system_error& error) {
        return base::failureText(error);
    } catch (const CodingError& error) {
        return error.what();
    } catch (const base::Refusal& refusal) {
        return refusal.what();
    }
    return {};
}

std::uintmax_t sizeOf(const std::vector<workspace::Version>& versions)
{
    std::uintmax_t sum = 0;
    for (const workspace::Version& version : versions) {
        sum += version.size;
    }
    return sum;
}

/// The errno of following a directory as a program does; 0 for success.
int errorOfFollowing(const fs::path& directory)
{
    const base::Descriptor events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (events.get() == -1) {
        return errno;
    }
    return ::inotify_add_watch(events.get(), nearestExisting(directory).c_str(), IN_MOVE) == -1 ? errno : 0;
}

/// The unit of systemd is for the usual directory only.
std::string commandToWatch(const Subject& subject)
{
    return subject.origin == Origin::option ? commandLine(subject, "watch")
                                            : "systemctl --user enable --now quillmere-watch";
}

}  // namespace

std::optional<Finding> versionsFinding(const Examined& examined)
{
    const fs::path& place = examined.subject.workspace.stateDirectory();
    if (place.empty()) {
        return withoutVersions(examined.subject);
    }
    const std::vector<workspace::Version> versions = examined.subject.workspace.versions().list();
    if (versions.empty()) {
        return good("There is none yet; they will be in " + place.string() + ".");
    }
    const std::string text = base::countText(std::ssize(versions), "version") + ", " +
                             sizeText(sizeOf(versions)) + ", the newest of " +
                             base::localText(versions.front().savedAt, examined.subject.hours) + ", in " +
                             place.string();
    if (const std::string failure = failureToRead(versions.front()); !failure.empty()) {
        return look(sentence(text + ". The newest cannot be read: " + failure),
                    "Earlier ones may: see which.", commandLine(examined.subject, "restore"));
    }
    return good(text + ".");
}

std::optional<Finding> inotifyFinding(const Examined& examined)
{
    const int error = errorOfFollowing(examined.subject.directory());
    if (error == 0) {
        return good("Programs see each other's changes at once.");
    }
    const std::string text =
        "Changes of files cannot be followed (inotify: " + std::generic_category().message(error) +
        "): programs look once a second instead.";
    switch (error) {
        case EMFILE:
            return look(text, "Allow more instances, as root.", "sysctl fs.inotify.max_user_instances=1024");
        case ENOSPC:
            return look(text, "Allow more watches, as root.", "sysctl fs.inotify.max_user_watches=524288");
        default: return look(text, "Nothing to do, but changes appear a second later.");
    }
}

std::optional<Finding> watchFinding(const Examined& examined)
{
    const fs::path& place = examined.subject.workspace.stateDirectory();
    const fs::path notices = workspace::noticesDirectory(place);
    std::error_code isMissing;
    if (place.empty() || !fs::is_directory(notices, isMissing)) {
        return good("No notices have been given here; quillmere watch gives them.");
    }
    switch (const int error = tryLock(notices)) {
        case EWOULDBLOCK: return good("A quillmere watch gives notices.");
        case 0:
            return look(
                "Nobody gives notices now: no quillmere watch runs, or none reaches a notification service.",
                "Start it, if you want notices or hooks.", commandToWatch(examined.subject));
        default:
            return look("Whether a quillmere watch gives notices cannot be told: " +
                            std::generic_category().message(error) + ".",
                        "Run one watch at a time, or notices come twice.");
    }
}

}  // namespace quillmere::doctor
