// Prints the agent's summary, computed now.
#include "commands/commands.hpp"
#include "text/inert.hpp"

#include <ostream>

namespace quillmere::app {
namespace {

void showSummary(Program& program)
{
    const Situation situation = program.workspace().look();
    const StateStore store({}, StateStore::renameReplacing);
    const AgentSnapshot summary = store.agentSnapshot(situation.state, situation.now);
    program.environment().out << inertJson(StateStore::encoder().encode(summary).view()) << '\n';
}

}  // namespace

void addAgent(CLI::App& line, Program& program)
{
    addCommand(line, program, "agent", "Print the summary that an agent reads, as of now (JSON)",
               [&program] { showSummary(program); });
}

}  // namespace quillmere::app
