#include "program.hpp"

#include "exit_code.hpp"
#include "report/status.hpp"
#include "text/local_time.hpp"
#include "workspace/state_home.hpp"

#include <quillmere/engine/workflow_error.hpp>

#include <ostream>

namespace quillmere::app {

Workspace Program::workspace() const
{
    return settings_.directory ? Workspace::in(*settings_.directory, environment_.clock)
                               : Workspace::ofThisUser(environment_.clock);
}

std::filesystem::path Program::keptBeside() const
{
    return app::keptBeside(workspace().directory(), environment_.stateHome);
}

Situation Program::apply(const Operation& operation)
{
    Situation situation =
        workspace().change([this](const std::vector<Event>& events) { reportEvents(events); }, operation);
    isDone_ = true;
    return situation;
}

void Program::change(std::string_view done, const Operation& operation)
{
    const Situation situation = apply(operation);
    if (settings_.json) {
        print({{"done", done}, {"events", eventsJson(events_)}, {"status", statusJson(situation)}});
        return;
    }
    environment_.out << done << "\n\n";
    printStatus(environment_.out, situation, style());
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
