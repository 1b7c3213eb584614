// The workspace of a person.
#pragma once

#include "program_testing.hpp"
#include "workspace/workspace.hpp"

namespace quillmere::test {

/// With the person's clock, and with versions. Not for longer than the person.
inline workspace::Workspace workspaceOf(const Person& person)
{
    return workspace::Workspace::in(
        person.directory(), [&person] { return person.now; }, person.stateHome());
}

}  // namespace quillmere::test
