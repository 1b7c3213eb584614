// A person at a terminal, and the same program in other processes.
#pragma once

#include "real_program.hpp"
#include "terminal_window.hpp"

namespace quillmere::test {

class ProgramElsewhere : public testing::Test {
protected:
    Person person;

    /// Runs the program in another process on the same directory; returns the exit code.
    int elsewhere(const Words& words) const
    {
        Words all = {"--directory", person.directory().string()};
        all.insert(all.end(), words.begin(), words.end());
        return runProgram(all).code;
    }
    testing::AssertionResult comesTo(WorkflowState workflowState) const
    {
        return eventually([&] { return person.state().workflowState == workflowState; });
    }
};

}  // namespace quillmere::test
