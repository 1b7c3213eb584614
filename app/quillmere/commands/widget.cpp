// Shows the widget's summary as a widget does: from its file alone.
#include "commands/commands.hpp"
#include "report/widget_report.hpp"

namespace quillmere::app {
namespace {

void showWidget(Program& program)
{
    const Workspace workspace = program.workspace();
    const Instant now = workspace.now();
    const WidgetSnapshot snapshot = workspace.widgetSnapshot(now);
    if (program.settings().json) {
        program.print(widgetJson(snapshot, now));
    } else {
        printWidget(program.environment().out, snapshot, now, program.style());
    }
}

}  // namespace

void addWidget(CLI::App& line, Program& program)
{
    addCommand(line, program, "widget", "Show the summary as a widget shows it",
               [&program] { showWidget(program); });
}

}  // namespace quillmere::app
