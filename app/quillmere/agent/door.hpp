// The agent's door to the files of one person.
#pragma once

#include "workspace/workspace.hpp"

namespace quillmere::app::agent {

/// Speaks the Model Context Protocol over standard input and output until the client goes. Nothing else may
/// use these two meanwhile.
void serve(const Workspace& workspace);

}  // namespace quillmere::app::agent
