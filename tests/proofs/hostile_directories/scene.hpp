// A tree of files in which something is wrong, and who acts in it.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace quillmere::test {

/// The tree, and how the process is set that acts in it.
struct Scene {
    std::filesystem::path root;                   ///< all of it, and the working directory
    std::filesystem::path place;                  ///< where the files are, or would be
    std::filesystem::path widgetPlace;            ///< the same of the widget's summary
    std::optional<std::filesystem::path> handed;  ///< what is handed over; absent: found by the environment
    mode_t mask = 022;                            ///< the file creation mask
    std::map<std::string, std::optional<std::string>> variables;  ///< of the environment
    std::function<void()> beforeMove = {};    ///< runs inside a save, before a file takes its place
    std::function<void()> betweenCalls = {};  ///< runs after a call, before the one that counts
};

/// What the files hold before anything is done: idle, so that nothing comes about by itself.
const QuillmereState& stateBefore();

/// What is saved.
const QuillmereState& stateToSave();

/// What files hold that nobody may read or change: they lie outside, or are leftovers.
const QuillmereState& foreignState();

/// Makes the tree: "place" with the three files, and "outside" with files of others.
Scene makeScene(const std::filesystem::path& root);

/// Moves "place" with all that is in it to another name, and hands over that one.
void moveTo(Scene& scene, const std::filesystem::path& place);

/// The JSON of a state as its file has it.
std::string textOfState(const QuillmereState& state);

}  // namespace quillmere::test
