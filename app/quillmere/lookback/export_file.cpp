#include "lookback/export_file.hpp"

#include "exit_code.hpp"

#include <quillmere/records/identifier.hpp>
#include <quillmere/store/state_store.hpp>

#include <system_error>

namespace quillmere::app::lookback {
namespace {

namespace fs = std::filesystem;

/// The file behind a link, or the path itself; one that may be new has no link to follow.
fs::path followed(const fs::path& file) { return fs::exists(file) ? fs::canonical(file) : file; }

fs::path parentOf(const fs::path& file)
{
    const fs::path parent = file.parent_path();
    return parent.empty() ? "." : parent;
}

/// A new name beside a file, on the same file system.
class TemporaryExport {
public:
    explicit TemporaryExport(const fs::path& file)
        : path_(file.parent_path() /
                ("." + file.filename().string() + "." + Identifier::random().text() + ".tmp"))
    {
    }
    TemporaryExport(const TemporaryExport&) = delete;
    TemporaryExport& operator=(const TemporaryExport&) = delete;
    ~TemporaryExport()
    {
        // After a move there is none.
        std::error_code ignored;
        fs::remove(path_, ignored);
    }

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

}  // namespace

void replaceFile(const fs::path& file, std::string_view content)
{
    const fs::path target = followed(file);
    const fs::file_status status = fs::status(target);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw ProgramError(ExitCode::fileError,
                           file.string() + " is not a regular file (- is standard output).");
    }
    const TemporaryExport temporary(target);
    FileManager::standard().writeWithoutOverwriting(temporary.path(),
                                                    [content](const ByteSink& sink) { sink(content); });
    if (fs::exists(status)) {
        fs::permissions(temporary.path(), status.permissions());
    }
    StateStore::renameReplacing(temporary.path(), target);
}

bool liesIn(const fs::path& file, const fs::path& directory)
{
    std::error_code isMissing;
    return fs::equivalent(parentOf(followed(file)), directory, isMissing);
}

}  // namespace quillmere::app::lookback
