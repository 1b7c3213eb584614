// Prints the line for a status bar. Reads the two summaries only.
#include "bar/bar_follower.hpp"
#include "bar/bar_format.hpp"
#include "base/system/line_writer.hpp"
#include "cli/commands.hpp"
#include "cli/text_options.hpp"

#include <CLI/CLI.hpp>

#include <unistd.h>

#include <memory>
#include <ostream>

namespace quillmere::cli {
namespace {

struct BarCommand {
    std::string format;
    std::size_t width = bar::usualBarWidth;
    bool follows = false;
};

std::string barFormatNames(const char* between)
{
    std::string names;
    for (const bar::BarFormat format : allCases<bar::BarFormat>()) {
        names.append(names.empty() ? "" : between).append(rawValue(format));
    }
    return names;
}

CLI::Validator barFormatName()
{
    return {[](std::string& word) {
                return fromRawValue<bar::BarFormat>(word) ? std::string()
                                                          : "is none of " + barFormatNames(", ");
            },
            ""};
}

bar::BarFormat formatOf(const BarCommand& command, const Settings& settings)
{
    return fromRawValue<bar::BarFormat>(command.format)
        .value_or(settings.json ? bar::BarFormat::json : bar::BarFormat::text);
}

void follow(const BarCommand& command, Program& program)
{
    const bar::BarFormat format = formatOf(command, program.settings());
    const auto lines = [&, hours = program.hours()](const bar::BarReading& reading, Instant now) {
        return bar::barText(format,
                            reading.work ? bar::barContent(work::ShortView::of(*reading.work, now),
                                                           {now, hours}, command.width)
                                         : bar::barContentOfFailure(reading.failure, command.width),
                            bar::BarPace::following);
    };
    // By its descriptor: a stream does not tell whether the reader is still there.
    base::Environment& environment = program.environment();
    base::LineWriter messages(environment.err, environment.error);
    bar::followBar(program.workspace(), environment.clock, lines, STDOUT_FILENO, messages);
}

void showBar(const BarCommand& command, Program& program)
{
    const workspace::Workspace workspace = program.workspace();
    const Instant now = workspace.now();
    const bar::BarFormat format = formatOf(command, program.settings());
    const work::ShortView work = work::ShortView::of(bar::readSummaries(workspace, now), now);
    const bar::BarContent content = bar::barContent(work, {now, program.hours()}, command.width);
    program.environment().out << bar::barText(format, content, bar::BarPace::once);
    if (format == bar::BarFormat::i3blocks && content.isOvertime) {
        program.exitCode = ExitCode::urgent;
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
    app->add_option("--format", command->format, "The format of the bar")
        ->type_name("{" + barFormatNames(",") + "}")
        ->check(barFormatName());
    app->add_option("--width", command->width, "The limit of the line in columns")
        ->transform(wholeNumber())
        ->check(widthOfABar())
        ->capture_default_str();
    app->add_flag("--follow", command->follows, "Stay, and print a line at each change");
}

}  // namespace quillmere::cli
