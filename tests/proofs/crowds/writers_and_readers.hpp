// Processes that save versions as fast as possible, and others that load them at the same time.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillmere::test {

/// What the readers observed, and the files at the end.
struct Findings {
    bool allEndedWell;
    std::uint64_t saves;             ///< of all three files
    std::uint64_t loads;             ///< of one file
    std::uint64_t missing;           ///< loads of a file that was not there
    std::uint64_t unreadable;        ///< loads that failed
    std::uint64_t mixed;             ///< loads of a mixture of several versions
    std::uint64_t backwards;         ///< loads of an earlier version of the same writer than before
    std::vector<std::string> names;  ///< in the directory at the end
};

/// Runs two writers without a lock and eight readers on one directory. All continue until `saves` and `loads`
/// are reached in total, so no process ever runs alone.
Findings findingsOf(std::uint64_t saves, std::uint64_t loads);

}  // namespace quillmere::test
