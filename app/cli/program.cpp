#include "cli/program.hpp"

#include "amendments/refusal.hpp"
#include "base/refusal.hpp"
#include "base/text/sanitize.hpp"
#include "cli/json_output.hpp"
#include "cli/status.hpp"
#include "work/event_text.hpp"
#include "work/undo/undo_step.hpp"

#include <quillmere/engine/workflow_error.hpp>

#include <nlohmann/json.hpp>

#include <ostream>

namespace quillmere::cli {

workspace::Workspace Program::workspace() const
{
    const std::filesystem::path directory =
        settings_.directory ? *settings_.directory : config::expanded(configuration().values.directory);
    return directory.empty()
               ? workspace::Workspace::ofThisUser(environment_.clock, environment_.stateHome)
               : workspace::Workspace::in(directory, environment_.clock, environment_.stateHome);
}

const config::Configuration& Program::readConfiguration(bool saysProblems) const
{
    if (!configuration_) {
        configuration_ = config::read(environment_.configDirectory);
        for (const config::Problem& problem : configuration_->problems) {
            warn(saysProblems ? config::problemText(problem) : "");
        }
    }
    return *configuration_;
}

void Program::change(std::string_view done, const workspace::Operation& operation, base::Reach reach)
{
    change(
        [&](QuillmereState& state, Instant now) {
            operation(state, now);
            return std::string(done);
        },
        reach);
}

void Program::change(const std::function<std::string(QuillmereState&, Instant now)>& operation,
                     base::Reach reach, const std::function<std::string()>& afterwards)
{
    std::string done;
    WorkflowState before{};
    const workspace::Situation situation = apply(
        [&](QuillmereState& state, Instant now) {
            before = state.workflowState;
            done = operation(state, now);
        },
        {.reach = reach});
    const StatusDetail detail =
        situation.state.workflowState == before ? StatusDetail::brief : StatusDetail::whole;
    printChange(done + (afterwards ? afterwards() : ""), situation, detail);
}

void Program::restore(const workspace::Version& version)
{
    const workspace::Situation situation = workspace().restore(
        version, [this](const std::vector<workspace::Event>& events) { reportEvents(events); });
    isCarriedOut_ = true;
    printChange("Version " + std::to_string(version.number) + " is restored.", situation,
                StatusDetail::whole);
}

void Program::take(const work::UndoStep& step)
{
    const workspace::Workspace files = workspace();
    const work::UndoChange change = work::changeBy(step, files);
    const workspace::Situation situation = apply(change.operation, change.manner);
    reportEvents(change.step->events);
    printChange(work::doneText(*change.step), situation, StatusDetail::whole);
}

void Program::catchUp() { apply(nullptr, {.reach = base::Reach::present}); }

bool Program::wouldAccept(const workspace::Operation& operation, base::Reach reach) const
{
    workspace::Situation situation = workspace().look(reach);
    try {
        operation(situation.state, situation.now);
        return true;
    } catch (const WorkflowError&) {
        return false;
    } catch (const amendments::Refusal&) {
        return false;
    } catch (const ProgramError&) {
        return false;
    } catch (const base::Refusal&) {
        return false;
    }
}

void Program::print(const base::Json& json) { printJson(environment_.out, json); }

workspace::Situation Program::apply(const workspace::Operation& operation,
                                    const workspace::ChangeManner& manner)
{
    try {
        workspace::Situation situation = workspace().change(
            [this](const std::vector<workspace::Event>& events) { reportEvents(events); }, operation, manner);
        isCarriedOut_ = true;
        warn(situation.warning);
        return situation;
    } catch (const workspace::MemoryRanOutOnceSaved&) {
        isCarriedOut_ = true;
        throw;
    }
}

void Program::printChange(std::string_view done, const workspace::Situation& situation, StatusDetail detail)
{
    if (settings_.json) {
        print({{"done", done}, {"events", eventsJson(events_)}, {"status", statusJson(situation)}});
        return;
    }
    environment_.out << done << "\n\n";
    printStatus(environment_.out, situation, style(), configuration().values, detail);
}

void Program::warn(const std::string& warning) const
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
            environment_.err << work::eventText(event, {environment_.clock(), hours()}) << '\n';
        }
    }
}

}  // namespace quillmere::cli
