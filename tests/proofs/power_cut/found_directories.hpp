// What a person finds after the power was cut.
#pragma once

#include <map>
#include <string>

#include "proofs/power_cut/recorded_saves.hpp"

namespace quillmere::test {

/// What became of a file.
enum class Finding {
    nothing,  ///< there is none, and loading gives an initial state
    version,  ///< one that was saved
    refused,  ///< load() threw DecodingError and left every byte
    foreign,  ///< anything else
};

struct Found {
    Finding state;
    std::size_t stateNumber;  ///< of the version
    Finding summary;
    std::size_t summaryNumber;
};

/// Builds directories and loads what is in them; each only once.
class FoundDirectories {
public:
    const Found& look(const DirectoryImage& image);

    /// How many different ones there were.
    std::size_t count() const { return known_.size(); }

private:
    std::map<DirectoryImage, Found> known_;
};

}  // namespace quillmere::test
