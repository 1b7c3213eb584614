// Files left by a process that died while writing.
#pragma once

#include <string>
#include <vector>

namespace quillmere::test {

/// Whether all names are hidden temporary files of the three files: ".state.json.UUID.tmp".
bool areHiddenTemporaries(const std::vector<std::string>& names);

}  // namespace quillmere::test
