// The server for agents, on the files of one person.
#pragma once

#include "workspace/workspace.hpp"

namespace quillmere::agent {

/// Serves the Model Context Protocol on two descriptors until the client is gone (`protocol::serve`) or
/// SIGTERM or SIGINT arrives. Returns at once when a descriptor is closed. Nothing else may use them
/// meanwhile.
void serve(const workspace::Workspace& workspace, int in, int out);

}  // namespace quillmere::agent
