// Why a command is not possible where the work stands.
#pragma once

#include "base/text/hours.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/engine/workflow_error.hpp>

#include <string>
#include <string_view>

namespace quillmere::work {

/// Where the work stands, without capital and full stop: "the block is scheduled for 14:30".
std::string standText(const workspace::Situation& situation, base::Hours hours);

/// A sentence with where the work stands and the commands that are possible: "No block has begun." becomes
/// "No block has begun: nothing is planned. Possible: plan."
std::string withPlace(std::string sentence, const workspace::Situation& situation, base::Hours hours);

/// The refusal of a command by the engine: its own sentence first, then what the command lacks, where the
/// work stands and which commands are possible, or which options give what is missing. "This action is not
/// available in the current workflow state. There is no focus session to pause: the block is scheduled for
/// 14:30. Possible: start, edit, cancel."
std::string refusalText(const WorkflowError& error, std::string_view command,
                        const workspace::Situation& situation, base::Hours hours);

}  // namespace quillmere::work
