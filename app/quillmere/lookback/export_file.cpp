#include "lookback/export_file.hpp"

#include "exit_code.hpp"

#include <quillmere/store/atomic_write.hpp>
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

}  // namespace

void replaceFile(const fs::path& file, std::string_view content)
{
    const fs::path target = followed(file);
    const fs::file_status status = fs::status(target);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw ProgramError(ExitCode::fileError,
                           file.string() + " is not a regular file (- is standard output).");
    }
    const auto moveOver = [&](const fs::path& written, const fs::path& place) {
        if (fs::exists(status)) {
            fs::permissions(written, status.permissions());
        }
        StateStore::renameReplacing(written, place);
    };
    writeAtomically([content](const ByteSink& sink) { sink(content); }, target, moveOver);
}

bool liesIn(const fs::path& file, const fs::path& directory)
{
    std::error_code isMissing;
    return fs::equivalent(parentOf(followed(file)), directory, isMissing);
}

}  // namespace quillmere::app::lookback
