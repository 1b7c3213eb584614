// The situations in which a store saves and loads.
#pragma once

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <string>
#include <vector>

#include "proofs/system_calls/version.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {

enum class StoreKind { state, widget };
enum class Replacing { plainly, durably };

struct Situation {
    StoreKind store;
    Before before;
    Replacing replacing;
};

/// All of them.
std::vector<Situation> situations();

/// What is in the directory of a store: its own files, in the order in which a save replaces them, and the
/// names of everything else.
struct Content {
    std::vector<Version> files;
    std::vector<std::string> others;
};

/// A store in a situation, in a directory of its own, which is below a missing one when there is none.
class Scene {
public:
    explicit Scene(const Situation& situation);

    /// Saves the newer version.
    void save() const;

    /// Loads; says which version it was. An initial state, and a summary that has not been written, are
    /// `none`.
    Version load() const;

    Content content() const;

    /// The paths of the store's own files, in the order in which a save replaces them.
    std::vector<std::filesystem::path> files() const;

private:
    Situation situation_;
    TemporaryDirectory home_;
    std::filesystem::path directory_;
    StateStore states_;
    WidgetSnapshotStore widget_;
};

}  // namespace quillmere::test
