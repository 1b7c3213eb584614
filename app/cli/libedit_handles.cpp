#include "cli/libedit_handles.hpp"

#include "cli/libedit.hpp"
#include "cli/utf8_locale.hpp"

#include <fcntl.h>

#include <cerrno>
#include <system_error>

namespace quillmere::cli {
namespace {

/// Otherwise el_end would set the modes of the terminal so that what is typed ahead gets lost.
void endLine(EditLine* line)
{
    libedit().set(line, EL_EDITMODE, 0);
    libedit().end(line);
}

}  // namespace

Stream streamOn(int descriptor, const char* mode)
{
    const int copy = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    std::FILE* const file = copy == -1 ? nullptr : ::fdopen(copy, mode);
    if (!file) {
        throw std::system_error(errno, std::generic_category(), "fdopen");
    }
    return {file, std::fclose};
}

EditorHandle lineOn(std::FILE* input, std::FILE* output, std::FILE* messages)
{
    EditorHandle line(libedit().init("quillmere", input, output, messages), endLine);
    if (!line) {
        throw std::system_error(ENOMEM, std::generic_category(), "el_init");
    }
    return line;
}

EarlierLines historyOf(const std::vector<std::string>& lines)
{
    EarlierLines history(libedit().initHistory(), libedit().endHistory);
    HistEventW event{};
    libedit().history(history.get(), &event, H_SETSIZE, static_cast<int>(lines.size()));
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        libedit().history(history.get(), &event, H_ENTER, wideText(*line).c_str());
    }
    return history;
}

}  // namespace quillmere::cli
