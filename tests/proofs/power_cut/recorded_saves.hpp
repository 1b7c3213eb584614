// Successive saves, with their recorded system calls.
#pragma once

#include <quillmere/store/state_store.hpp>

#include <string>
#include <vector>

#include "proofs/power_cut/file_system_model.hpp"

namespace quillmere::test {

/// The files that a save replaces. `present`: the state alone, its years copied (statefile::KeptPart).
enum class Scope { state, present, widget, all };

/// The saves to record.
struct Saves {
    Scope scope;
    bool hasEarlier;  ///< whether version 0 was saved before and is durable
    std::size_t count;
    ReplaceItem replaceItem;
};

/// The state of each version. Version 0 is the earlier one.
QuillmereState versionNumber(std::size_t number);

/// The same with a history and closed questions, as in Scope::present.
QuillmereState withYears(QuillmereState version);

/// A moment for a power cut, and the possible directories after it.
struct CutMoment {
    std::size_t completed;  ///< the last version whose save had returned; 0 for none
    std::size_t begun;      ///< the last version whose save had started
    std::set<DirectoryImage> images;
};

/// The moments before and after each call.
std::vector<CutMoment> cutMoments(const Saves& saves);

}  // namespace quillmere::test
