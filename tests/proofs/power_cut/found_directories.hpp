// The directories that a person may find after a power cut.
#pragma once

#include <map>
#include <string>

#include "proofs/power_cut/recorded_saves.hpp"

namespace quillmere::test {

/// The condition of a file after a power cut.
enum class Finding {
    nothing,  ///< the file is missing, and loading gives an initial state
    version,  ///< a saved version
    refused,  ///< decoding fails, and all bytes are kept
    foreign,  ///< any other content
};

struct FoundFile {
    Finding finding = Finding::foreign;
    std::size_t number = 0;  ///< the number of the version
};

struct Found {
    FoundFile state;
    FoundFile agent;   ///< the agent's summary
    FoundFile widget;  ///< the widget's
};

/// Creates possible directories and loads their files. Remembers the result of each directory.
class FoundDirectories {
public:
    const Found& look(const DirectoryImage& image);

    /// The number of different directories.
    std::size_t count() const { return known_.size(); }

private:
    std::map<DirectoryImage, Found> known_;
};

}  // namespace quillmere::test
