#include "program.hpp"

#include "exit_code.hpp"
#include "report/status.hpp"
#include "text/inert.hpp"
#include "text/local_time.hpp"

#include <quillmere/engine/workflow_error.hpp>

#include <ostream>

namespace quillmere::app {

Workspace Program::workspace() const
{
    return settings_.directory
               ? Workspace::in(*settings_.directory, environment_.clock, environment_.stateHome)
               : Workspace::ofThisUser(environment_.clock, environment_.stateHome);
}

Situation Program::apply(const Operation& operation)
{
    Situation situation =
        workspace().change([this](const std::vector<Event>& events) { reportEvents(events); }, operation);
    isDone_ = true;
    warn(situation.warning);
    return situation;
}

void Program::change(std::string_view done, const Operation& operation) { say(done, apply(operation)); }

void Program::say(std::string_view done, const Situation& situation)
{
    if (settings_.json) {
        print({{"done", done}, {"events", eventsJson(events_)}, {"status", statusJson(situation)}});
        return;
    }
    environment_.out << done << "\n\n";
    printStatus(environment_.out, situation, style());
}

void Program::bringBack(const Version& version)
{
    const Situation situation = workspace().bringBack(version);
    isDone_ = true;
    say("Version " + std::to_string(version.number) + " is back.", situation);
}

void Program::letTimePass() { apply(nullptr); }

bool Program::wouldAccept(const Operation& operation) const
{
    Situation situation = workspace().look();
    try {
        operation(situation.state, situation.now);
        return true;
    } catch (const WorkflowError&) {
        return false;
    } catch (const ProgramError&) {
        return false;
    }
}

void Program::warn(const std::string& warning)
{
    if (!warning.empty()) {
        environment_.err << (settings_.json ? jsonLine({{"warning", warning}}) : inert(warning)) << '\n';
    }
}

void Program::reportEvents(const std::vector<Event>& events)
{
    events_.insert(events_.end(), events.begin(), events.end());
    if (!settings_.json) {
        for (const Event& event : events) {
            environment_.err << eventText(event, environment_.clock()) << '\n';
        }
    }
}

void Program::print(const Json& json)
{
    // Nothing beyond ASCII, so no control character either.
    environment_.out << json.dump(2, ' ', true, Json::error_handler_t::replace) << '\n';
}

std::string jsonLine(const Json& json) { return json.dump(-1, ' ', true, Json::error_handler_t::replace); }

std::string eventText(const Event& event, Instant now)
{
    const std::string time = localTextSeenFrom(now, event.at);
    switch (event.kind) {
        case Event::Kind::blockStarted: return "The scheduled block started at " + time + ".";
        case Event::Kind::focusEnded: return "The focus session ended at " + time + ".";
        case Event::Kind::breakEnded: break;
    }
    return "The break was over at " + time + ".";
}

Json eventsJson(const std::vector<Event>& events)
{
    Json list = Json::array();
    for (const Event& event : events) {
        list.push_back({{"event", eventName(event.kind)}, {"at", instantJson(event.at)}});
    }
    return list;
}

}  // namespace quillmere::app
