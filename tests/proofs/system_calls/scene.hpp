// The situations for saves and loads of a store.
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

/// All combinations.
std::vector<Situation> situations();

/// The content of a store's directory: the versions of its own files in the order in which a save replaces
/// them, and the names of other files.
struct Content {
    std::vector<Version> files;
    std::vector<std::string> others;
};

/// A store in a situation. Its directory is new, and below a missing one when the situation has no directory.
class Scene {
public:
    explicit Scene(const Situation& situation);

    /// Saves the newer version.
    void save() const;

    /// Loads and returns the version. An initial state and a missing summary are `none`.
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
