// The agent's door to the files of one person.
#pragma once

#include "workspace/workspace.hpp"

namespace quillmere::agent {

/// Speaks the Model Context Protocol over two descriptors until the client goes (`protocol::serve`), or
/// SIGTERM or SIGINT comes; at once ends with nothing said where one of them is closed. Nothing else may use
/// them meanwhile.
void serve(const workspace::Workspace& workspace, int in, int out);

}  // namespace quillmere::agent
