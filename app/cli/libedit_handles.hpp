// What libedit hands out, freed at the end of the scope.
#pragma once

#include <histedit.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace quillmere::cli {

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A stream of its own on the terminal: closing it leaves the descriptor open. Throws `std::system_error`.
Stream streamOn(int descriptor, const char* mode);

using EditorHandle = std::unique_ptr<EditLine, void (*)(EditLine*)>;

/// Freeing it leaves what is typed ahead. Throws `std::system_error`.
EditorHandle lineOn(std::FILE* input, std::FILE* output, std::FILE* messages);

using EarlierLines = std::unique_ptr<HistoryW, void (*)(HistoryW*)>;

/// The lines that the arrow keys bring, the newest first.
EarlierLines historyOf(const std::vector<std::string>& lines);

}  // namespace quillmere::cli
