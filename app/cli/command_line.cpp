#include "cli/command_line.hpp"

#include "cli/commands.hpp"
#include "cli/examples.hpp"
#include "cli/program.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillmere::cli {
namespace {

/// The arguments with "--option=" as two words, "--option" and an empty one. CLI11 would take the word that
/// follows for the value.
std::vector<std::string> withEmptyValues(const std::vector<std::string>& arguments)
{
    std::vector<std::string> words;
    bool optionsMayFollow = true;
    for (const std::string& argument : arguments) {
        optionsMayFollow = optionsMayFollow && argument != "--";
        const bool isOption = optionsMayFollow && argument.starts_with("--");
        if (isOption && argument.find('=') == argument.size() - 1) {
            words.push_back(argument.substr(0, argument.size() - 1));
            words.emplace_back();
        } else {
            words.push_back(argument);
        }
    }
    return words;
}

/// Ends the help of each command below `group` with its examples. `above` is the group with a space behind.
void showExamples(CLI::App& group, const std::string& above = "")
{
    for (CLI::App* const command : group.get_subcommands(nullptr)) {
        const std::string words = above + command->get_name();
        command->footer(examplesOf(words));
        showExamples(*command, words + " ");
    }
}

struct CommandRow {
    std::string_view name;
    void (*add)(CLI::App&, Program&);
    bool looksAtAll = false;  ///< needs the other commands beside it
};

// clang-format off
// In the order of the help. ui after status: both set the action for a command line without a command, and on a
// terminal the screen replaces the status.
constexpr auto commandRows = std::to_array<CommandRow>({
    {"status",    addStatus},
    {"ui",        addUi},
    {"plan",      addPlan},
    {"start",     addStart},
    {"edit",      addEdit},
    {"cancel",    addCancel},
    {"change",    addChange},
    {"now",       addNow},
    {"focus",     addFocus},
    {"pause",     addPause},
    {"resume",    addResume},
    {"extend",    addExtend},
    {"away",      addAway},
    {"end",       addEnd},
    {"review",    addReview},
    {"break",     addBreak},
    {"finish",    addFinish},
    {"reflect",   addReflect},
    {"ask",       addAsk},
    {"questions", addQuestions},
    {"answer",    addAnswer},
    {"history",   addHistory},
    {"report",    addReport},
    {"amend",     addAmend},
    {"delete",    addDelete},
    {"reset",     addReset},
    {"undo",      addUndo},
    {"redo",      addRedo},
    {"restore",   addRestore},
    {"widget",    addWidget},
    {"bar",       addBar},
    {"agent",     addAgent},
    {"open",      addOpen},
    {"tick",      addTick},
    {"watch",     addWatch},
    {"tour",      addTour},
    {"config",    addConfig},
    {"doctor",    addDoctor},
    {"help",      addHelp, true},
    {"version",   addVersion},
    {"complete",  addComplete, true},
});
// clang-format on

void addGlobalOptions(CLI::App& line, Program& program)
{
    line.add_option("--directory", program.settings().directory, "Keep the files in this directory")
        ->type_name("DIRECTORY")
        ->check([](const std::string& path) { return std::string(path.empty() ? "is empty" : ""); });
    line.add_flag("--json", program.settings().json, "Print JSON, for programs");
    line.set_help_flag("-h,--help", "Print this help");
    line.require_subcommand(0, 1);
}

}  // namespace

void defineCommandLine(CLI::App& line, Program& program)
{
    addGlobalOptions(line, program);
    for (const CommandRow& row : commandRows) {
        row.add(line, program);
    }
    showExamples(line);
}

bool defineNamedCommands(CLI::App& line, Program& program, const std::vector<std::string>& arguments)
{
    addGlobalOptions(line, program);
    bool isAnyNamed = false;
    for (const CommandRow& row : commandRows) {
        if (std::find(arguments.begin(), arguments.end(), row.name) == arguments.end()) {
            continue;
        }
        if (row.looksAtAll) {
            return false;
        }
        row.add(line, program);
        isAnyNamed = true;
    }
    return isAnyNamed;
}

void parse(const std::vector<std::string>& arguments, CLI::App& line)
{
    std::vector<std::string> words = withEmptyValues(arguments);
    std::reverse(words.begin(), words.end());  // as CLI11 takes a vector
    line.parse(words);
}

}  // namespace quillmere::cli
