// Prints the line for a status bar, from the widget's summary alone.
#include "bar/bar_follower.hpp"
#include "bar/bar_format.hpp"
#include "commands/commands.hpp"
#include "commands/fields.hpp"

#include <unistd.h>

#include <memory>
#include <ostream>

namespace quillmere::app {
namespace {

struct BarCommand {
    std::string format;
    std::size_t width = usualBarWidth;
    bool follows = false;
};

std::string barFormatNames()
{
    std::string names;
    for (const BarFormat format : allCases<BarFormat>()) {
        names.append(names.empty() ? "" : ", ").append(rawValue(format));
    }
    return names;
}

CLI::Validator barFormatName()
{
    return {[](std::string& word) {
                return fromRawValue<BarFormat>(word) ? std::string() : "is none of " + barFormatNames();
            },
            ""};
}

BarFormat formatOf(const BarCommand& command, const Settings& settings)
{
    return fromRawValue<BarFormat>(command.format)
        .value_or(settings.json ? BarFormat::json : BarFormat::text);
}

void follow(const BarCommand& command, Program& program)
{
    const BarFormat format = formatOf(command, program.settings());
    const auto lines = [&](const BarReading& reading, Instant now) {
        return barText(format,
                       reading.summary ? barContent(*reading.summary, now, command.width)
                                       : barContentOfFailure(reading.failure, command.width),
                       BarPace::following);
    };
    // Whether anybody still reads is asked of the system, which a stream cannot do.
    followBar(program.workspace(), program.environment().clock, lines, STDOUT_FILENO);
}

void showBar(const BarCommand& command, Program& program)
{
    const Workspace workspace = program.workspace();
    const Instant now = workspace.now();
    const BarFormat format = formatOf(command, program.settings());
    const BarContent content = barContent(workspace.widgetSnapshot(now), now, command.width);
    program.environment().out << barText(format, content, BarPace::once);
    if (format == BarFormat::i3blocks && content.isOvertime) {
        program.ending = ExitCode::urgent;
    }
}

CLI::Validator widthOfABar()
{
    constexpr std::size_t most = 1'000;
    return CLI::Range(std::size_t{1}, most);
}

}  // namespace

void addBar(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<BarCommand>();
    CLI::App* const app =
        addCommand(line, program, "bar", "Print the line for a status bar", [command, &program] {
            if (command->follows) {
                follow(*command, program);
            } else {
                showBar(*command, program);
            }
        });
    app->add_option("--format", command->format, "For which bar: " + barFormatNames())
        ->check(barFormatName());
    app->add_option("--width", command->width, "How many columns at most")
        ->transform(wholeNumber())
        ->check(widthOfABar())
        ->capture_default_str();
    app->add_flag("--follow", command->follows, "Stay, and print a line at each change");
}

}  // namespace quillmere::app
