#include "cli/usage_error.hpp"

#include "base/text/nearest.hpp"
#include "base/text/quotes.hpp"

#include <CLI/CLI.hpp>

#include <optional>
#include <vector>

namespace quillmere::cli {
namespace {

/// The command that the line went to, or the line itself.
const CLI::App& reached(const CLI::App& line)
{
    const CLI::App* app = &line;
    while (!app->get_subcommands().empty()) {
        app = app->get_subcommands().front();
    }
    return *app;
}

/// "break extend"; empty for the whole line.
std::string pathOf(const CLI::App& app)
{
    if (!app.get_parent()) {
        return "";
    }
    const std::string above = pathOf(*app.get_parent());
    return (above.empty() ? "" : above + " ") + app.get_name();
}

bool isShown(const CLI::App* app) { return !app->get_group().empty(); }

std::vector<std::string> commandsOf(const CLI::App& group)
{
    std::vector<std::string> names;
    for (const CLI::App* const command : group.get_subcommands(isShown)) {
        names.push_back(command->get_name());
    }
    return names;
}

/// The long options that may stand after the command.
std::vector<std::string> optionsOf(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::App* each = &app; each; each = each->get_parent()) {
        for (const CLI::Option* const option : each->get_options()) {
            for (const std::string& name : option->get_lnames()) {
                names.push_back("--" + name);
            }
        }
    }
    return names;
}

std::string suggestion(const std::string& word, const std::vector<std::string>& known)
{
    const std::optional<std::string> meant = base::nearest(word, known);
    return meant ? " Did you mean " + *meant + "?" : "";
}

std::string unknownOptionText(const CLI::App& app, const std::string& word)
{
    const std::string name = word.substr(0, word.find('='));
    const std::string path = pathOf(app);
    return (path.empty() ? "There is no option " : path + " has no option ") + base::inQuotes(name) + "." +
           suggestion(name, optionsOf(app));
}

std::string unexpectedText(const CLI::App& app, const std::string& word)
{
    if (word.starts_with("-")) {
        return unknownOptionText(app, word);
    }
    return commandsOf(app).empty() ? pathOf(app) + " takes no " + base::inQuotes(word) + "."
                                   : unknownCommandText(app, word);
}

}  // namespace

std::string unknownCommandText(const CLI::App& group, const std::string& word)
{
    const std::string path = pathOf(group);
    return (path.empty() ? "There is no command " : path + " has no command ") + base::inQuotes(word) + "." +
           suggestion(word, commandsOf(group));
}

std::string usageErrorText(const CLI::App& line, const CLI::ParseError& error)
{
    const CLI::App& app = reached(line);
    const std::vector<std::string> unexpected = line.remaining(true);
    // A misspelt word is also a reason why something required seems to be missing.
    const bool isUnexpected = !unexpected.empty() && (dynamic_cast<const CLI::ExtrasError*>(&error) ||
                                                      dynamic_cast<const CLI::RequiredError*>(&error));
    const std::string path = pathOf(app);
    return (isUnexpected ? unexpectedText(app, unexpected.front()) : std::string(error.what())) +
           " (quillmere " + (path.empty() ? "" : path + " ") + "--help)";
}

}  // namespace quillmere::cli
