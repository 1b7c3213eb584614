// A tree of files in an unusual condition, and the settings of the process that uses it.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace quillmere::test {

/// The tree, and the settings of the process.
struct Scene {
    std::filesystem::path root;                            ///< the whole tree, and the working directory
    std::filesystem::path place;                           ///< the directory of the files, existing or not
    std::filesystem::path widgetPlace;                     ///< the directory of the widget's summary
    std::optional<std::filesystem::path> directoryOption;  ///< the `--directory` option
    mode_t mask = 022;                                     ///< the file creation mask
    std::map<std::string, std::optional<std::string>> variables;  ///< environment variables
    std::function<void()> beforeMove = {};    ///< runs inside a save, before a file is moved to its place
    std::function<void()> betweenCalls = {};  ///< runs between an earlier call and the tested one
};

/// The state in the files before the operation: idle, so that no timer changes it.
const QuillmereState& stateBefore();

/// The state to save.
const QuillmereState& stateToSave();

/// The content of files that no operation may read or change: files outside the directory, and leftovers.
const QuillmereState& foreignState();

/// Makes the tree: "place" with the three files, and "outside" with other files.
Scene makeScene(const std::filesystem::path& root);

/// Renames "place" with its content, and passes the new name to the program.
void moveTo(Scene& scene, const std::filesystem::path& place);

/// The JSON text of a state file.
std::string textOfState(const QuillmereState& state);

}  // namespace quillmere::test
