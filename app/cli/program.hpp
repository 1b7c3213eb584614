// What every command of a run shares.
#pragma once

#include "base/environment.hpp"
#include "base/json.hpp"
#include "base/text/style.hpp"
#include "cli/exit_code.hpp"
#include "workspace/workspace.hpp"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::cli {

/// The options that stand before or after any command.
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
    const std::vector<workspace::Event>& events() const { return events_; }

    /// What the command line asks for; set by the command that was named.
    std::function<void()> action;

    /// How the run ends when nothing fails.
    ExitCode ending = ExitCode::done;

    workspace::Workspace workspace() const;
    base::Style style() const { return base::Style(base::wantsColour(environment_.outputIsTerminal)); }

    /// Runs one operation of a person on their files, then says `done` and where the work stands.
    void change(std::string_view done, const workspace::Operation& operation);

    /// Puts a version in the place of the state, then says so and where the work stands.
    void bringBack(const workspace::Version& version);

    /// Lets time pass on the files, and repairs their summaries.
    void letTimePass();

    /// Whether the operation would be carried out now. Nothing of it is kept. Where it would not, there
    /// is no use in asking for more, and `change` says why.
    bool wouldAccept(const workspace::Operation& operation) const;

    /// Whether what was asked has been done to the files.
    bool isDone() const { return isDone_; }

    /// Prints a result that is the same for persons and programs: JSON, harmless to a terminal.
    void print(const base::Json& json);

private:
    workspace::Situation apply(const workspace::Operation& operation);
    void say(std::string_view done, const workspace::Situation& situation);
    /// Says what went wrong beside what was asked.
    void warn(const std::string& warning);

    /// Keeps what came about by itself and says so, at once to a person, with the result to a program.
    void reportEvents(const std::vector<workspace::Event>& events);

    base::Environment& environment_;
    Settings settings_;
    std::vector<workspace::Event> events_;
    bool isDone_ = false;
};

/// The events as programs read them.
base::Json eventsJson(const std::vector<workspace::Event>& events);

}  // namespace quillmere::cli
