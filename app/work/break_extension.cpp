#include "work/break_extension.hpp"

#include "workspace/catching_up.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::work {

void extendBreak(QuillmereState& state, double seconds, Instant now)
{
    WorkflowEngine().extendBreak(state, seconds, now);
    workspace::catchUp(state, now);
}

}  // namespace quillmere::work
