// Saves in a row, with the calls that they made.
#pragma once

#include <quillmere/store/state_store.hpp>

#include <string>
#include <vector>

#include "proofs/power_cut/file_system_model.hpp"

namespace quillmere::test {

/// Which files a save replaces.
enum class Scope { state, widget, all };

/// What to save, and how.
struct Saves {
    Scope scope;
    bool hasEarlier;  ///< whether version 0 was saved long ago, and lasts
    std::size_t count;
    ReplaceItem replaceItem;
};

/// Of each version: the state, by its number. Version 0 is the earlier one.
QuillmereState versionNumber(std::size_t number);

/// A moment at which the power may be cut, and what may be found afterwards.
struct CutMoment {
    std::size_t completed;  ///< the last version whose save had returned; 0 for none
    std::size_t begun;      ///< the last version whose save had begun
    std::set<DirectoryImage> images;
};

/// One moment a call, before and behind it.
std::vector<CutMoment> cutMoments(const Saves& saves);

}  // namespace quillmere::test
