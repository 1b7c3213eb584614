// Questions of agents to the person, within limits: the engine has none, and an agent out of control must not
// flood the person.
#pragma once

#include "agent/attempt.hpp"
#include "workspace/workspace.hpp"

#include <cstddef>
#include <string>

namespace quillmere::agent {

inline constexpr std::size_t mostAMinute = 10;
inline constexpr std::size_t mostOpen = 50;

/// Throws ToolRefusal when a limit is reached. Counts the questions of the state, so that the limits hold for
/// all agents together; questions from `quillmere ask` count too.
void requireRoom(const QuillmereState& state, Instant now);

/// A call that adds a question by `Workspace::change`. Its result has the `id`, and whether the person is
/// `interruptible` now. While another program has the lock, tries again as long as a command would wait.
protocol::Call askThePerson(const workspace::Workspace& workspace, const std::string& question,
                            protocol::Moment begin);

}  // namespace quillmere::agent
