#include "doctor/mode_findings.hpp"

#include "doctor/files.hpp"
#include "doctor/shell_word.hpp"

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quillmere::doctor {
namespace {

namespace fs = std::filesystem;

constexpr mode_t allOthers = S_IRWXG | S_IRWXO;

/// The permissions; 0 where they cannot be read.
mode_t permissionsOf(const fs::path& path)
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// Whether every directory above lets all users pass.
bool isReachable(const fs::path& path)
{
    std::error_code error;
    fs::path directory = fs::canonical(path, error);
    while (!error && directory.has_relative_path()) {
        directory = directory.parent_path();
        if ((permissionsOf(directory) & S_IXOTH) == 0) {
            return false;
        }
    }
    return !error;
}

std::string octal(mode_t mode)
{
    std::string digits;
    for (const int shift : {9, 6, 3, 0}) {
        digits += static_cast<char>('0' + ((mode >> shift) & 7));
    }
    return digits;
}

/// Paths of one kind whose modes are wider than they need to be.
struct Wide {
    std::vector<fs::path> paths;
    std::vector<fs::path> open;  ///< those of them that every user can read or change

    void add(const fs::path& path, mode_t opening)
    {
        const mode_t mode = permissionsOf(path);
        if ((mode & allOthers) != 0) {
            paths.push_back(path);
            if ((mode & opening) != 0 && isReachable(path)) {
                open.push_back(path);
            }
        }
    }

    std::string command(const char* mode) const
    {
        std::string line = paths.empty() ? "" : std::string("chmod ") + mode;
        for (const fs::path& path : paths) {
            line += " " + shellWord(path);
        }
        return line;
    }
};

/// Whole paths of directories, names of files.
std::string listOf(const std::vector<fs::path>& directories, const std::vector<fs::path>& files)
{
    std::string list;
    const auto add = [&](const std::string& name, const fs::path& path) {
        list += (list.empty() ? "" : ", ") + name + " (" + octal(permissionsOf(path)) + ")";
    };
    for (const fs::path& directory : directories) {
        add(directory.string(), directory);
    }
    for (const fs::path& file : files) {
        add(file.filename().string(), file);
    }
    return list;
}

std::string joined(const std::string& first, const std::string& second)
{
    return first + (first.empty() || second.empty() ? "" : " && ") + second;
}

}  // namespace

std::optional<Finding> modesFinding(const Examined& examined)
{
    if (ownPaths(examined.subject).empty()) {
        return std::nullopt;
    }
    Wide directories;
    for (const fs::path& directory : ownDirectories(examined.subject)) {
        directories.add(directory, S_IWOTH);
    }
    Wide files;
    for (const fs::path& file : ownFiles(examined.subject)) {
        files.add(file, S_IROTH | S_IWOTH);
    }
    if (directories.paths.empty() && files.paths.empty()) {
        return good("Only you can read the files.");
    }
    const std::string remedy = "Take the others' permissions away.";
    const std::string command = joined(directories.command("700"), files.command("600"));
    if (!directories.open.empty() || !files.open.empty()) {
        return wrong(
            "Every user of this machine can read or change " + listOf(directories.open, files.open) + ".",
            remedy, command);
    }
    return look("Wider than needed: " + listOf(directories.paths, files.paths) + ".", remedy, command);
}

}  // namespace quillmere::doctor
