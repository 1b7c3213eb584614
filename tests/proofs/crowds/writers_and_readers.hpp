// Processes that save versions as fast as they can, beside others that load them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillmere::test {

/// What the readers found, and what was left.
struct Findings {
    bool allEndedWell;
    std::uint64_t saves;       ///< of all three files
    std::uint64_t loads;       ///< of one file
    std::uint64_t missing;     ///< loads of a file that was not there
    std::uint64_t unreadable;  ///< loads that threw
    std::uint64_t mixed;       ///< loads of what was not of one version
    std::uint64_t backwards;   ///< loads of an earlier version than the reader had seen of the same writer
    std::vector<std::string> names;  ///< in the directory at the end
};

/// Two writers without a lock and eight readers at work on one directory. All go on until `saves` and
/// `loads` have been made between them, so that none is ever alone.
Findings findingsOf(std::uint64_t saves, std::uint64_t loads);

}  // namespace quillmere::test
