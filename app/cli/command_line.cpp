#include "cli/command_line.hpp"

#include "cli/commands.hpp"
#include "cli/examples.hpp"
#include "cli/program.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>

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

}  // namespace

void defineCommandLine(CLI::App& line, Program& program)
{
    line.add_option("--directory", program.settings().directory, "Keep the files in this directory")
        ->type_name("DIRECTORY")
        ->check([](const std::string& path) { return std::string(path.empty() ? "is empty" : ""); });
    line.add_flag("--json", program.settings().json, "Print JSON, for programs");
    line.set_help_flag("-h,--help", "Print this help");
    line.require_subcommand(0, 1);
    // addUi after addStatus: both set the action for a command line without a command, and on a terminal the
    // screen replaces the status.
    // clang-format off
    for (const auto add : {
             addStatus, addUi,
             addPlan, addStart, addEdit, addCancel, addChange,
             addNow, addFocus, addPause, addResume, addExtend, addAway, addEnd, addReview, addBreak,
             addFinish, addReflect,
             addAsk, addQuestions, addAnswer,
             addHistory, addReport, addAmend, addDelete, addReset, addUndo, addRedo, addRestore,
             addWidget, addBar, addAgent, addOpen,
             addTick, addWatch, addTour, addConfig, addDoctor, addHelp, addVersion, addComplete}) {
        // clang-format on
        add(line, program);
    }
    showExamples(line);
}

void parse(const std::vector<std::string>& arguments, CLI::App& line)
{
    std::vector<std::string> words = withEmptyValues(arguments);
    std::reverse(words.begin(), words.end());  // as CLI11 takes a vector
    line.parse(words);
}

}  // namespace quillmere::cli
