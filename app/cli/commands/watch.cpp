// Records events as time passes, and gives notices on the desktop.
#include "notices/watch.hpp"
#include "cli/commands.hpp"
#include "notices/notifier_process.hpp"

#include <CLI/CLI.hpp>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quillmere::cli {

void addWatch(CLI::App& line, Program& program)
{
    const std::map<std::string, notices::Urgency> urgencies = {{"low", notices::Urgency::low},
                                                               {"normal", notices::Urgency::normal},
                                                               {"critical", notices::Urgency::critical}};
    const auto settings = std::make_shared<notices::WatchSettings>();
    CLI::App* const app = addCommand(
        line, program, "watch", "Let time pass, and give notices on the desktop", [settings, &program] {
            settings->json = program.settings().json;
            settings->hours = program.hours();
            const std::vector<std::string>& configured = program.configuration().values.hooks;
            settings->hooks.insert(settings->hooks.begin(), configured.begin(), configured.end());
            notices::NotifierProcess notifier(notices::notifierProgram());
            notices::Watch(program.workspace(), program.environment(), *settings, notifier).run();
        });
    app->add_flag("--once", settings->once, "Give the notices that are due, then end");
    app->add_option("--urgency", settings->urgency, "How urgent the notices are: normal (usual)")
        ->type_name("{low,normal,critical}")
        ->transform(CLI::CheckedTransformer(urgencies).description(""));
    app->add_option("--hook", settings->hooks,
                    "A shell command to run at each event, with its name as $1 and the widget's summary to "
                    "read; may be given several times")
        ->allow_extra_args(false);
    app->add_option("--open-command", settings->opener, "The program that opens links: xdg-open (usual)");
}

}  // namespace quillmere::cli
