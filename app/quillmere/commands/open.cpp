// Says which screen a deep link leads to.
#include "commands/commands.hpp"
#include "commands/fields.hpp"
#include "exit_code.hpp"

#include <memory>
#include <ostream>

namespace quillmere::app {
namespace {

void openLink(const std::string& link, Program& program)
{
    const std::optional<WidgetRoute> route = fromURL<WidgetRoute>(link);
    if (!route) {
        throw ProgramError(ExitCode::usage,
                           "This link leads nowhere; they look like " + url(WidgetRoute::focus) + ".");
    }
    if (program.settings().json) {
        program.print({{"screen", rawValue(*route)}, {"link", url(*route)}});
    } else {
        program.environment().out << rawValue(*route) << '\n';
    }
}

}  // namespace

void addOpen(CLI::App& line, Program& program)
{
    const auto link = std::make_shared<std::string>();
    addCommand(line, program, "open", "Say which screen a deep link leads to",
               [link, &program] { openLink(*link, program); })
        ->add_option("link", *link, "For example " + url(WidgetRoute::focus))
        ->required();
}

}  // namespace quillmere::app
