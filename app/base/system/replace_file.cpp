#include "base/system/replace_file.hpp"

#include "base/refusal.hpp"

#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/state_store.hpp>

#include <string>
#include <system_error>

namespace quillmere::base {
namespace {

namespace fs = std::filesystem;

/// The directory of a file, links resolved as far as it exists.
fs::path parentOf(const fs::path& file) { return fs::weakly_canonical(fs::absolute(file).parent_path()); }

/// Links in /proc stand for open files of processes (proc(5)).
bool holdsOpenFiles(const fs::path& directory) { return directory.string().starts_with("/proc/"); }

/// An error names `shown`, not the temporary file.
void write(std::string_view content, const fs::path& place, const ReplaceItem& moveOver,
           const fs::path& shown)
{
    try {
        writeAtomically([content](const ByteSink& sink) { sink(content); }, place, moveOver);
    } catch (const std::system_error& error) {
        throw fs::filesystem_error("write", shown, error.code());
    }
}

}  // namespace

fs::path destinationOf(const fs::path& file)
{
    constexpr int mostLinks = 40;  // the limit of the system (path_resolution(7))
    fs::path place = file;
    for (int links = 0; links <= mostLinks; ++links) {
        const fs::path parent = parentOf(place);
        if (holdsOpenFiles(parent)) {
            throw Refusal(Refusal::Kind::invalidRequest,
                          file.string() + " is an open file of a program; - is standard output.");
        }
        place = parent / place.filename();
        if (!fs::is_symlink(place)) {
            return place;
        }
        place = parent / fs::read_symlink(place);
    }
    throw fs::filesystem_error("open", file, std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

bool liesWithin(const fs::path& path, const fs::path& directory)
{
    std::error_code isMissing;
    fs::path inner = path;
    while (inner.has_relative_path()) {
        inner = inner.parent_path();
        if (fs::equivalent(inner, directory, isMissing)) {
            return true;
        }
    }
    return false;
}

void replaceFile(const fs::path& file, std::string_view content)
{
    const fs::path place = destinationOf(file);
    const fs::file_status status = fs::status(place);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw Refusal(Refusal::Kind::fileError,
                      file.string() + " is not a regular file (- is standard output).");
    }
    const auto moveOver = [&](const fs::path& written, const fs::path& destination) {
        if (fs::exists(status)) {
            fs::permissions(written, status.permissions());
        }
        StateStore::renameReplacing(written, destination);
    };
    write(content, place, moveOver, file);
}

void replaceOwnFile(const fs::path& file, std::string_view content)
{
    write(content, file, StateStore::renameReplacing, file);
}

}  // namespace quillmere::base
