// Lets time pass without a screen, and gives notices on the desktop.
#include "notices/watch.hpp"
#include "commands/commands.hpp"

#include <map>
#include <memory>

namespace quillmere::app {

void addWatch(CLI::App& line, Program& program)
{
    const std::map<std::string, Urgency> urgencies = {
        {"low", Urgency::low}, {"normal", Urgency::normal}, {"critical", Urgency::critical}};
    const auto settings = std::make_shared<WatchSettings>();
    CLI::App* const app = addCommand(line, program, "watch", "Let time pass, and give notices on the desktop",
                                     [settings, &program] {
                                         settings->notifier = notifierProgram();
                                         Watch(program, *settings).run();
                                     });
    app->add_flag("--once", settings->once, "Only give what is due, then end");
    app->add_option("--urgency", settings->urgency, "How urgent the notices are: normal (usual)")
        ->type_name("{low,normal,critical}")
        ->transform(CLI::CheckedTransformer(urgencies).description(""));
    app->add_option("--hook", settings->hooks,
                    "A shell command to run at each event, with its name as $1 and the widget's summary to "
                    "read; may be given several times")
        ->allow_extra_args(false);
    app->add_option("--open-command", settings->opener, "The program that opens links: xdg-open (usual)");
}

}  // namespace quillmere::app
