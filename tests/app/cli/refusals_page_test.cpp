// What each command says in each state: docs/refusals.md. QUILLMERE_REFUSALS_PAGE names a file to write the
// page to.
#include <cstdlib>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

struct NamedState {
    std::string name;
    QuillmereState state;
};

QuillmereState paused()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment;
    return state;
}

/// A scheduled block back in planning.
QuillmereState edited()
{
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    return state;
}

std::vector<NamedState> states()
{
    return {{"Nothing is planned", stateIn(WorkflowState::idle)},
            {"A block is scheduled", stateWithScheduledBlock()},
            {"A block is being planned", stateIn(WorkflowState::blockPlanning)},
            {"The scheduled block is edited", edited()},
            {"A session is being planned", stateIn(WorkflowState::sessionPlanning)},
            {"Focus", stateIn(WorkflowState::focusing)},
            {"Focus, paused", paused()},
            {"Review", stateIn(WorkflowState::sessionReview)},
            {"Break", stateIn(WorkflowState::breaking)},
            {"Reflection", stateIn(WorkflowState::blockReview)},
            {"A file says `complete`", stateIn(WorkflowState::complete)}};
}

/// Commands that change the work, with as little as they need.
const std::vector<Words>& commands()
{
    static const std::vector<Words> all = {{"plan", "--start"},
                                           {"start"},
                                           {"edit", "--focus", "50m"},
                                           {"cancel"},
                                           {"change", "--why", "More"},
                                           {"focus"},
                                           {"now", "More", "--energy", "4", "--morale", "3"},
                                           {"pause"},
                                           {"resume"},
                                           {"extend", "5m"},
                                           {"away", "--from", "14:59:59"},
                                           {"end"},
                                           {"end", "--at", "14:59:59"},
                                           {"review", "--completion", "yes"},
                                           {"review", "--completion", "yes", "--finish"},
                                           {"break", "extend", "5m"},
                                           {"break", "end"},
                                           {"break", "skip"},
                                           {"finish"},
                                           {"reflect"},
                                           {"answer", "1", "Yes"},
                                           {"amend", ".1", "--result", "More"},
                                           {"delete", "ABCD"},
                                           {"reset"},
                                           {"undo"},
                                           {"redo"}};
    return all;
}

std::string commandLine(const Words& words)
{
    std::string line;
    for (const std::string& word : words) {
        line += (line.empty() ? "" : " ") + word;
    }
    return line;
}

/// The error without its line end; empty when the command is carried out.
std::string refusalOf(const Words& command, const QuillmereState& state)
{
    const Person person;
    person.has(state);
    const Ending ending = person.types(command);
    EXPECT_EQ(ending.code == ExitCode::done, ending.err.empty()) << commandLine(command) << ending.err;
    return ending.err.empty() ? "" : ending.err.substr(0, ending.err.size() - 1);
}

std::string page()
{
    std::string text =
        "# What a refused command says\n\n"
        "Each command in each state, at 15:00, without a terminal to ask on. A test holds every sentence.\n";
    for (const Words& command : commands()) {
        text +=
            "\n## `" + commandLine(command) + "`\n\n| Where the work stands | What it says |\n|---|---|\n";
        for (const NamedState& state : states()) {
            const std::string refusal = refusalOf(command, state.state);
            text += "| " + state.name + " | " + (refusal.empty() ? "*done*" : refusal) + " |\n";
        }
    }
    return text;
}

TEST(RefusalsPage, saysWhatEachCommandSaysInEachState)
{
    const TimeZone utc("UTC");
    const std::string text = page();
    if (const char* const file = std::getenv("QUILLMERE_REFUSALS_PAGE")) {
        writeText(file, text);
    }
    EXPECT_EQ(text, textOf(std::filesystem::path(QUILLMERE_DOCS_DIRECTORY) / "refusals.md"));
}

}  // namespace
}  // namespace quillmere::test
