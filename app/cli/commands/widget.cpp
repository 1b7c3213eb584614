// Shows the widget's summary as a widget does: reads its file only.
#include "cli/commands.hpp"
#include "cli/widget_report.hpp"

#include <nlohmann/json.hpp>

namespace quillmere::cli {
namespace {

void showWidget(Program& program)
{
    const workspace::Workspace workspace = program.workspace();
    const Instant now = workspace.now();
    const WidgetSnapshot snapshot = workspace.widgetSnapshot(now);
    if (program.settings().json) {
        program.print(widgetJson(snapshot, now));
    } else {
        printWidget(program.environment().out, snapshot, {now, program.hours()}, program.style());
    }
}

}  // namespace

void addWidget(CLI::App& line, Program& program)
{
    addCommand(line, program, "widget", "Show the summary as a widget shows it",
               [&program] { showWidget(program); });
}

}  // namespace quillmere::cli
