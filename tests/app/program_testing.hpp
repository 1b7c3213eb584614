// The program as its tests use it: a person with a directory and a clock of their own.
#pragma once

#include "cli/run.hpp"

#include <gtest/gtest.h>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::cli {

/// Lets a failed test name the code.
void PrintTo(ExitCode code, std::ostream* stream);

}  // namespace quillmere::cli

namespace quillmere::test {

using cli::ExitCode;
using Words = std::vector<std::string>;

/// How a run ended, and what it printed.
struct Ending {
    ExitCode code;
    std::string out;
    std::string err;
};

/// A person who types commands. The clock stands still unless the test sets `now`.
class Person {
public:
    /// The time on the person's clock. Usually between whole seconds, as on real clocks.
    Instant now = moment + 0.75;
    double suspendedSeconds = 0;            ///< base::suspendedSeconds of the person's computer
    bool isAsked = false;                   ///< standard input is a terminal, so the program may ask
    bool seesColour = false;                ///< standard output is a terminal that shows colours
    std::string answers;                    ///< the content of standard input
    std::filesystem::path configDirectory;  ///< empty: nothing is configured

    const std::filesystem::path& directory() const { return directory_->path(); }
    const std::filesystem::path& stateHome() const { return stateHome_->path(); }
    std::vector<std::string> names() const { return directory_->names(); }

    /// Runs a command on the person's own directory.
    Ending types(const Words& arguments) const;

    /// Runs the program with exactly these arguments.
    Ending runs(const Words& arguments) const;

    /// The same after some seconds.
    Ending typesLater(double seconds, const Words& arguments);

    /// Saves a state and both summaries, as another program of the person would.
    void has(const QuillmereState& state) const;

    StateStore store() const;

    // The three files.
    QuillmereState state() const;
    AgentSnapshot agentSummary() const;
    WidgetSnapshot widgetSummary() const;

private:
    std::unique_ptr<TemporaryDirectory> directory_ = std::make_unique<TemporaryDirectory>();
    std::unique_ptr<TemporaryDirectory> stateHome_ = std::make_unique<TemporaryDirectory>();
};

/// Whether both summaries are those of the state at the person's `now`.
testing::AssertionResult filesAgree(const Person& person);

/// Every entry of a directory by relative path: its inode, the time of its last change and its content. The
/// directory itself is ".".
std::map<std::string, std::string> pictureOf(const std::filesystem::path& directory);

/// The value at a JSON pointer (RFC 6901), as compact JSON; fails the test when there is none.
std::string jsonAt(const std::string& pointer, const std::string& json);

/// The keys of an object, in order; fails the test when it is none.
std::vector<std::string> keysOf(const std::string& json);

/// The text with its only `part` replaced; fails the test unless there is exactly one.
std::string replaced(std::string text, const std::string& part, const std::string& replacement);

/// Sets the local time zone for its lifetime.
class TimeZone {
public:
    explicit TimeZone(const char* name);
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    struct Notice {
        ~Notice();
    } notice_;  // after the variable has its value back
    EnvironmentVariable variable_;
};

}  // namespace quillmere::test
