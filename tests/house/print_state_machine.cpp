// Prints the map of the workflow from the table that the engine runs on: docs/state-machine.md.
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
    std::cout << "| Operation | In | Then | When also |\n|---|---|---|---|\n";
    for (const Transition& row : transition_table::rows) {
        std::cout << "| `" << row.operation << "` | " << nameOf(row.accepts, "any") << " | "
                  << nameOf(row.result, "the same") << " | " << row.condition << " |\n";
    }
}

}  // namespace

int main()
{
    std::cout << "# The state machine\n\n"
                 "Printed from the table that the engine runs on (`core/engine/transition.hpp`); a test "
                 "holds this\n"
                 "page to it. `skipBreak` is `endBreak` under another name. `evaluateTimer` also takes "
                 "`endFocus`,\n"
                 "when the time of a focus session is used up. No operation leads to `complete`.\n\n";
    printDiagram();
    std::cout << '\n';
    printTable();
}
