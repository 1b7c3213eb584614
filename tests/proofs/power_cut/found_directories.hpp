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
    refused,  ///< it does not decode, and every byte was left
    foreign,  ///< anything else
};

struct FoundFile {
    Finding finding = Finding::foreign;
    std::size_t number = 0;  ///< of the version
};

struct Found {
    FoundFile state;
    FoundFile agent;   ///< the agent's summary
    FoundFile widget;  ///< the widget's
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
