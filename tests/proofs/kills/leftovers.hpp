// What a process leaves that died while it was writing.
#pragma once

#include <string>
#include <vector>

namespace quillmere::test {

/// Whether all names are those of hidden temporary files of the three files: ".state.json.UUID.tmp".
bool areHiddenTemporaries(const std::vector<std::string>& names);

}  // namespace quillmere::test
