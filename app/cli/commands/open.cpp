// Opens the screen that a deep link names; without a terminal, prints its name.
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/text_options.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <ostream>

namespace quillmere::cli {
namespace {

void openLink(const std::string& link, Program& program)
{
    const std::optional<WidgetRoute> route = fromURL<WidgetRoute>(link);
    if (!route) {
        throw ProgramError(ExitCode::usage, "This is not a link of Quillmere: " + link + ". They look like " +
                                                url(WidgetRoute::focus) + ".");
    }
    if (isForScreen(program)) {
        openScreen(program, route);
    } else if (program.settings().json) {
        program.print({{"screen", rawValue(*route)}, {"link", url(*route)}});
    } else {
        program.environment().out << rawValue(*route) << '\n';
    }
}

}  // namespace

void addOpen(CLI::App& line, Program& program)
{
    const auto link = std::make_shared<std::string>();
    addCommand(line, program, "open", "Open the screen that a deep link names",
               [link, &program] { openLink(*link, program); })
        ->add_option("link", *link, "For example " + url(WidgetRoute::focus))
        ->required();
}

}  // namespace quillmere::cli
