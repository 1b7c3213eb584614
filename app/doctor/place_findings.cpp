#include "doctor/place_findings.hpp"

#include "doctor/files.hpp"
#include "doctor/shell_word.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace quillmere::doctor {
namespace {

namespace fs = std::filesystem;

std::string reasonOf(Origin origin)
{
    switch (origin) {
        case Origin::option: return "chosen by --directory";
        case Origin::configuration: return "chosen by the configuration";
        case Origin::dataHome: return "in XDG_DATA_HOME";
        case Origin::home: break;
    }
    return "the usual one";
}

/// Whether XDG_DATA_HOME is set to a path that does not count (XDG Base Directory).
bool ignoresDataHome(Origin origin)
{
    const char* const dataHome = std::getenv("XDG_DATA_HOME");
    return origin == Origin::home && dataHome && *dataHome;
}

Finding missingDirectory(const std::string& text, const Subject& subject)
{
    const fs::path above = nearestExisting(subject.directory());
    if (!fs::is_directory(above)) {
        return wrong(text + " cannot be made: " + above.string() + " is no directory.",
                     "Move that file away, or name another directory with --directory.");
    }
    if (::faccessat(AT_FDCWD, above.c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
        return wrong(text + " cannot be made in " + above.string() + ": " +
                         std::generic_category().message(errno) + ".",
                     "Make it yourself, with the rights to do so, or name another one with --directory.");
    }
    return look(text + " does not exist: there is no state yet.", "The first change makes it.",
                commandLine(subject, "plan"));
}

/// None for the superuser, who should not own the files of another user.
std::string commandToOwn(const Subject& subject, uid_t user)
{
    if (user == 0) {
        return {};
    }
    std::string line = "sudo chown -R " + std::to_string(user);
    for (const fs::path& directory : ownDirectories(subject)) {
        line += " " + shellWord(directory);
    }
    return line;
}

std::string linkTarget(const fs::path& link)
{
    std::error_code ignored;
    return fs::read_symlink(link, ignored).string();
}

}  // namespace

std::optional<Finding> directoryFinding(const Examined& examined)
{
    const fs::path& directory = examined.subject.directory();
    const std::string text = directory.string() + " (" + reasonOf(examined.subject.origin) + ")";
    const fs::file_status status = fs::status(directory);
    if (fs::exists(status) && !fs::is_directory(status)) {
        return wrong(text + " is no directory.",
                     "Move that file away, or name another directory with --directory.");
    }
    if (fs::is_symlink(directory) && !fs::exists(status)) {
        return wrong(text + " is a link to " + linkTarget(directory) + ", which does not exist.",
                     "Make that directory, or remove the link.");
    }
    if (!examined.probe) {
        return missingDirectory(text, examined.subject);
    }
    if (const int error = examined.probe->write.value_or(0); error != 0) {
        return wrong("In " + text + " no file can be made: " + std::generic_category().message(error) + ".",
                     "Without that every change fails. Give yourself the right to write there, or make "
                     "room.");
    }
    if (ignoresDataHome(examined.subject.origin)) {
        return look(text + ". XDG_DATA_HOME does not count, because it is not an absolute path.",
                    "Set it to an absolute path, or remove it.", "unset XDG_DATA_HOME");
    }
    const FileSystemType type = fileSystemAt(directory);
    return fileSystemFinding(text + ", on " + type.name, type);
}

Finding fileSystemFinding(const std::string& text, const FileSystemType& type)
{
    if (type.isInMemory) {
        return look(text + ", which is in memory: the files are lost when the machine stops.",
                    "Keep them elsewhere, unless that is meant.");
    }
    if (type.isOverNetwork) {
        return look(text +
                        ", which comes over a network: programs take turns on one machine, but perhaps "
                        "not between machines.",
                    "Change the state from one machine at a time.");
    }
    return good(text + ".");
}

std::optional<Finding> ownerFinding(const Examined& examined)
{
    if (!examined.probe) {
        return std::nullopt;
    }
    const uid_t user = ::geteuid();
    for (const fs::path& path : ownPaths(examined.subject)) {
        struct stat status {};
        if (::stat(path.c_str(), &status) == 0 && status.st_uid != user) {
            return look(path.string() + " belongs to user " + std::to_string(status.st_uid) +
                            ", and this is user " + std::to_string(user) + ".",
                        "Work as the user to whom the files belong, or have them given to you.",
                        commandToOwn(examined.subject, user));
        }
    }
    return good("Directory and files are your own.");
}

std::optional<Finding> linksFinding(const Examined& examined)
{
    if (!examined.probe) {
        return std::nullopt;
    }
    const fs::path& directory = examined.subject.directory();
    const fs::path state = stateFile(examined.subject);
    if (fs::is_symlink(state)) {
        const fs::path target = directory / fs::read_symlink(state);
        return wrong(
            state.string() + " is a link to " + linkTarget(state) +
                ". Changes are refused, because a save would replace the link by a file; looking works.",
            "Work in the directory of the target, or make the directory itself the link.",
            "quillmere --directory " + shellWord(target.lexically_normal().parent_path()));
    }
    for (const fs::path& summary : summaryFiles(examined.subject)) {
        if (fs::is_symlink(summary)) {
            return look(summary.string() + " is a link to " + linkTarget(summary) +
                            ". The next change replaces it by a file.",
                        "Link the directory instead, or let readers open the file here.");
        }
    }
    const fs::path real = fs::canonical(directory);
    return good(real == directory ? "No file is a link." : "The directory is at " + real.string() + ".");
}

}  // namespace quillmere::doctor
