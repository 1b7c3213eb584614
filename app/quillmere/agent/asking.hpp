// How an agent puts a question to the person. The engine takes any; an agent that runs wild must not bury
// the person in them.
#pragma once

#include "agent/attempt.hpp"
#include "workspace/workspace.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmere::app::agent {

inline constexpr std::size_t mostCharacters = 2'000;  ///< of a question, in code points
inline constexpr std::size_t mostAMinute = 10;
inline constexpr std::size_t mostOpen = 50;

/// The question without white space (ASCII) around it. Throws Refusal when it is empty, too long, or has
/// control characters other than line feed and tab.
std::string askable(std::string_view question);

/// Throws Refusal when the person has been asked enough. Goes by the state alone, so that the limits hold for
/// all agents together, and for the person's own `quillmere ask`.
void requireRoom(const QuillmereState& state, Instant now);

/// Adds a question, as `Workspace::change` does everything. The result has its `id`, and whether the person
/// is `interruptible` now. Throws Refusal, and what changing throws.
Json askThePerson(const Workspace& workspace, std::string_view question);

}  // namespace quillmere::app::agent
