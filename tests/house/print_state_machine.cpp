// Prints docs/state-machine.md from the table that the engine uses.
#include <quillmere/engine/transition.hpp>

#include <iostream>
#include <string>

namespace {

using namespace quillmere;

std::string nameOf(const std::optional<WorkflowState>& state, const char* otherwise)
{
    return state ? "`" + std::string(rawValue(*state)) + "`" : otherwise;
}

void printDiagram()
{
    std::cout << "```mermaid\nstateDiagram-v2\n    [*] --> idle\n";
    for (const Transition& row : transition_table::rows) {
        if (row.accepts && row.result) {
            std::cout << "    " << rawValue(*row.accepts) << " --> " << rawValue(*row.result) << " : "
                      << row.operation << '\n';
        }
    }
    std::cout << "```\n";
}

void printTable()
{
    std::cout << "| Operation | In | If | Then | With |\n|---|---|---|---|---|\n";
    for (const Transition& row : transition_table::rows) {
        std::cout << "| `" << row.operation << "` | " << nameOf(row.accepts, "any") << " | "
                  << row.guard.words << " | " << nameOf(row.result, "the same") << " | " << row.arguments
                  << " |\n";
    }
}

}  // namespace

int main()
{
    std::cout
        << "# The state machine\n\n"
           "Printed from the table that the engine runs on (`core/engine/transition.hpp`); a test fails "
           "when this\n"
           "page differs from it. `skipBreak` is `endBreak` under another name. `evaluateTimer` also "
           "takes the\n"
           "step `endFocus`, when the time of a focus session has run out. No operation leads to "
           "`complete`.\n\n";
    printDiagram();
    std::cout << "\nA step is possible in the workflow state *In* when the condition *If* holds; "
                 "`isPossible` tells. Its\n"
                 "operation then leads to *Then*, given arguments as in *With*.\n\n";
    printTable();
}
