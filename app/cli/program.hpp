// Shared by the commands of a run: settings, the workspace, and the ways to change it and to print.
#pragma once

#include "base/environment.hpp"
#include "base/json.hpp"
#include "base/text/hours.hpp"
#include "base/text/style.hpp"
#include "cli/exit_code.hpp"
#include "config/configuration.hpp"
#include "workspace/workspace.hpp"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {
struct UndoStep;
}

namespace quillmere::cli {

/// How much of the status follows a change: what helps at a moment is told when that moment begins.
enum class StatusDetail { brief, whole };

/// The global options.
struct Settings {
    std::optional<std::filesystem::path> directory;
    bool json = false;
};

class Program {
public:
    explicit Program(base::Environment& environment) : environment_(environment) {}
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    base::Environment& environment() { return environment_; }
    Settings& settings() { return settings_; }

    /// Carries out the command. Set by the parser when it finds the command.
    std::function<void()> action;
    /// The words of the command: "break extend". Set with its action.
    std::string command;

    /// The exit code when nothing fails.
    ExitCode exitCode = ExitCode::done;

    workspace::Workspace workspace() const;

    /// The configuration, read when it is first needed. What is wrong with it is said then, as a warning.
    const config::Configuration& configuration() const { return readConfiguration(true); }
    /// The same for a surface that says by itself what is wrong.
    const config::Configuration& configurationInSilence() const { return readConfiguration(false); }

    /// How the person reads times.
    base::Hours hours() const { return configuration().values.hours; }
    base::Style style() const { return base::Style(base::wantsColour(environment_.outputIsTerminal)); }

    /// Applies an operation to the files, then prints `done` and the status. With a reach short of the years
    /// the operation gets a state without them (ChangeManner).
    void change(std::string_view done, const workspace::Operation& operation,
                base::Reach reach = base::Reach::present);

    /// The same for an operation that returns what it has done. Calls `afterwards` between saving and
    /// printing, and adds its text.
    void change(const std::function<std::string(QuillmereState&, Instant now)>& operation,
                base::Reach reach = base::Reach::present,
                const std::function<std::string()>& afterwards = nullptr);

    /// Replaces the state by a version, then prints that and the status.
    void restore(const workspace::Version& version);

    /// Undoes or redoes (work::changeBy), then prints that and the status.
    void take(const work::UndoStep& step);

    /// Records the time that passed, and writes missing summaries again. Prints only events.
    void catchUp();

    /// Dry run: whether the engine would accept the operation now. Skips prompts whose answers it would
    /// refuse.
    bool wouldAccept(const workspace::Operation& operation, base::Reach reach) const;

    /// The events that this run recorded.
    const std::vector<workspace::Event>& events() const { return events_; }

    /// Whether the command has done its work on the files; its output may still fail.
    bool isCarriedOut() const { return isCarriedOut_; }

    /// Prints a result as JSON (cli::printJson).
    void print(const base::Json& json);

private:
    workspace::Situation apply(const workspace::Operation& operation,
                               const workspace::ChangeManner& manner = {});
    void printChange(std::string_view done, const workspace::Situation& situation, StatusDetail detail);
    /// Prints a warning, unless it is empty.
    void warn(const std::string& warning) const;
    const config::Configuration& readConfiguration(bool saysProblems) const;

    /// Remembers recorded events. Prints them at once for a person; JSON has them in the result.
    void reportEvents(const std::vector<workspace::Event>& events);

    base::Environment& environment_;
    Settings settings_;
    mutable std::optional<config::Configuration> configuration_;  ///< absent until it is needed
    std::vector<workspace::Event> events_;
    bool isCarriedOut_ = false;
};

}  // namespace quillmere::cli
