// Records events as time passes, and gives notices on the desktop.
#include "notices/watch.hpp"
#include "cli/commands.hpp"
#include "notices/notifier_process.hpp"
#include "work/event_text.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <cstddef>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace quillmere::cli {

namespace {

/// The events that hooks run at.
void listEvents(Program& program)
{
    const std::vector<work::EventDescription> events = work::allEvents();
    if (program.settings().json) {
        base::Json list = base::Json::array();
        for (const work::EventDescription& event : events) {
            list.push_back({{"event", event.name}, {"meaning", event.meaning}});
        }
        program.print(list);
        return;
    }
    constexpr std::size_t nameColumns = 17;
    for (const work::EventDescription& event : events) {
        program.environment().out << event.name << std::string(nameColumns - event.name.size(), ' ')
                                  << event.meaning << '\n';
    }
}

}  // namespace

void addWatch(CLI::App& line, Program& program)
{
    const std::map<std::string, notices::Urgency> urgencies = {{"low", notices::Urgency::low},
                                                               {"normal", notices::Urgency::normal},
                                                               {"critical", notices::Urgency::critical}};
    const auto settings = std::make_shared<notices::WatchSettings>();
    const auto listsEvents = std::make_shared<bool>(false);
    CLI::App* const app =
        addCommand(line, program, "watch", "Let time pass, and give notices on the desktop",
                   [settings, &program, listsEvents] {
                       if (*listsEvents) {
                           listEvents(program);
                           return;
                       }
                       settings->json = program.settings().json;
                       settings->hours = program.hours();
                       const std::vector<std::string>& configured = program.configuration().values.hooks;
                       settings->reminderSeconds = program.configuration().values.reminderSeconds;
                       settings->sound = program.configuration().values.sound;
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
    app->add_flag("--list-events", *listsEvents,
                  "Print the events that hooks run at, with their meanings, and end");
    app->add_option("--open-command", settings->opener, "The program that opens links: xdg-open (usual)");
}

}  // namespace quillmere::cli
