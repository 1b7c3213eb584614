#include "cli/program.hpp"

#include "base/text/sanitize.hpp"
#include "cli/exit_code.hpp"
#include "cli/status.hpp"
#include "work/event_text.hpp"

#include <nlohmann/json.hpp>

#include <quillmere/engine/workflow_error.hpp>

#include <ostream>

namespace quillmere::cli {

workspace::Workspace Program::workspace() const
{
    return settings_.directory
               ? workspace::Workspace::in(*settings_.directory, environment_.clock, environment_.stateHome)
               : workspace::Workspace::ofThisUser(environment_.clock, environment_.stateHome);
}

workspace::Situation Program::apply(const workspace::Operation& operation)
{
    workspace::Situation situation = workspace().change(
        [this](const std::vector<workspace::Event>& events) { reportEvents(events); }, operation);
    isDone_ = true;
    warn(situation.warning);
    return situation;
}

void Program::change(std::string_view done, const workspace::Operation& operation)
{
    say(done, apply(operation));
}

void Program::say(std::string_view done, const workspace::Situation& situation)
{
    if (settings_.json) {
        print({{"done", done}, {"events", eventsJson(events_)}, {"status", statusJson(situation)}});
        return;
    }
    environment_.out << done << "\n\n";
    printStatus(environment_.out, situation, style());
}

void Program::bringBack(const workspace::Version& version)
{
    const workspace::Situation situation = workspace().bringBack(version);
    isDone_ = true;
    say("Version " + std::to_string(version.number) + " is back.", situation);
}

void Program::letTimePass() { apply(nullptr); }

bool Program::wouldAccept(const workspace::Operation& operation) const
{
    workspace::Situation situation = workspace().look();
    try {
        operation(situation.state, situation.now);
        return true;
    } catch (const WorkflowError&) {
        return false;
    } catch (const ProgramError&) {
        return false;
    } catch (const base::Refusal&) {
        return false;
    }
}

void Program::warn(const std::string& warning)
{
    if (!warning.empty()) {
        environment_.err << (settings_.json ? base::jsonLine({{"warning", warning}})
                                            : base::sanitized(warning))
                         << '\n';
    }
}

void Program::reportEvents(const std::vector<workspace::Event>& events)
{
    events_.insert(events_.end(), events.begin(), events.end());
    if (!settings_.json) {
        for (const workspace::Event& event : events) {
            environment_.err << work::eventText(event, environment_.clock()) << '\n';
        }
    }
}

void Program::print(const base::Json& json)
{
    // Nothing beyond ASCII, so no control character either.
    environment_.out << json.dump(2, ' ', true, base::Json::error_handler_t::replace) << '\n';
}

base::Json eventsJson(const std::vector<workspace::Event>& events)
{
    base::Json list = base::Json::array();
    for (const workspace::Event& event : events) {
        list.push_back(
            {{"event", work::eventName(work::kindOf(event))}, {"at", base::instantJson(event.at)}});
    }
    return list;
}

}  // namespace quillmere::cli
