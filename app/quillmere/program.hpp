// What every command of a run shares.
#pragma once

#include "environment.hpp"
#include "exit_code.hpp"
#include "text/style.hpp"
#include "workspace/workspace.hpp"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::app {

using Json = nlohmann::ordered_json;

/// The options that stand before or after any command.
struct Settings {
    std::optional<std::filesystem::path> directory;
    bool json = false;
};

class Program {
public:
    explicit Program(Environment& environment) : environment_(environment) {}
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    Environment& environment() { return environment_; }
    Settings& settings() { return settings_; }
    const std::vector<Event>& events() const { return events_; }

    /// What the command line asks for; set by the command that was named.
    std::function<void()> action;

    /// How the run ends when nothing fails.
    ExitCode ending = ExitCode::done;

    Workspace workspace() const;
    Style style() const { return Style(wantsColour(environment_.outputIsTerminal)); }

    /// Runs one operation of a person on their files, then says `done` and where the work stands.
    void change(std::string_view done, const Operation& operation);

    /// Puts a version in the place of the state, then says so and where the work stands.
    void bringBack(const Version& version);

    /// Lets time pass on the files, and repairs their summaries.
    void letTimePass();

    /// Whether the operation would be carried out now. Nothing of it is kept. Where it would not, there
    /// is no use in asking for more, and `change` says why.
    bool wouldAccept(const Operation& operation) const;

    /// Whether what was asked has been done to the files.
    bool isDone() const { return isDone_; }

    /// Prints a result that is the same for persons and programs: JSON, harmless to a terminal.
    void print(const Json& json);

private:
    Situation apply(const Operation& operation);
    void say(std::string_view done, const Situation& situation);
    /// Says what went wrong beside what was asked.
    void warn(const std::string& warning);

    /// Keeps what came about by itself and says so, at once to a person, with the result to a program.
    void reportEvents(const std::vector<Event>& events);

    Environment& environment_;
    Settings settings_;
    std::vector<Event> events_;
    bool isDone_ = false;
};

/// JSON on one line, harmless to a terminal.
std::string jsonLine(const Json& json);

/// The events as programs read them.
Json eventsJson(const std::vector<Event>& events);

}  // namespace quillmere::app
