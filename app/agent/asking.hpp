// How an agent puts a question to the person. The engine takes any; an agent that runs wild must not bury
// the person in them.
#pragma once

#include "agent/attempt.hpp"
#include "workspace/workspace.hpp"

#include <cstddef>
#include <string>

namespace quillmere::agent {

inline constexpr std::size_t mostAMinute = 10;
inline constexpr std::size_t mostOpen = 50;

/// Throws Refusal when the person has been asked enough. Goes by the state alone, so that the limits hold for
/// all agents together, and for the person's own `quillmere ask`.
void requireRoom(const QuillmereState& state, Instant now);

/// Adds a question, as `Workspace::change` does everything. The result has its `id`, and whether the person
/// is `interruptible` now. Tries again while another program is at work, for as long as a person would wait.
agent::protocol::Call askThePerson(const workspace::Workspace& workspace, const std::string& question,
                                   agent::protocol::Moment begin);

}  // namespace quillmere::agent
