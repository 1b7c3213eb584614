// Plays a whole block through real files, on a clock of its own, and shows what everybody sees.
#include "commands/commands.hpp"
#include "report/status.hpp"
#include "run.hpp"
#include "text/inert.hpp"
#include "text/local_time.hpp"

#include <stdlib.h>

#include <memory>
#include <ostream>
#include <sstream>

namespace quillmere::app {
namespace {

namespace fs = std::filesystem;

/// One step: some time passes, then somebody types a command.
struct Step {
    double secondsLater;
    std::string_view remark;
    std::vector<std::string> command;
};

/// Monday, 2 March 2026, 09:00 UTC.
constexpr Instant tourStart{1'772'442'000};

const std::vector<Step>& steps()
{
    static const std::vector<Step> all = {
        {0,
         "Planning a block of two sessions, with what it is for and how to tell that it is done.",
         {"plan",
          "--outcome",
          "Outline of the report",
          "--outcome",
          "First section in draft",
          "--why",
          "The board meets on Thursday",
          "--done-test",
          "Someone else can continue from it",
          "--hazards",
          "Polishing sentences too early",
          "--check",
          "800 words",
          "--focus",
          "25m",
          "--break",
          "5m",
          "--cycles",
          "2",
          "--start"}},
        {60,
         "A short plan, and the first session begins.",
         {"focus", "--outcome", "Five headings with a line each", "--first-action", "Open last year's report",
          "--hazards", "Phone in the drawer", "--energy", "4", "--morale", "3", "--towards", "1"}},
        {600, "The doorbell.", {"pause"}},
        {30,
         "Meanwhile the agent may interrupt, and asks.",
         {"ask", "The nightly build fails. Shall I roll back the update?"}},
        {45, "The person sees the question and answers it.", {"answer", "1", "Yes, and tell the team"}},
        {15, "Back to work: the clock stood still for a minute and a half.", {"resume"}},
        {960, "Nobody looked when the time was up. The session has ended when it did, not now.", {"tick"}},
        {30,
         "A short review, and the plan for the next session. The break begins.",
         {"review", "--completion", "Half", "--result", "Four headings stand", "--distractions", "The door",
          "--improvement", "Write first, sort later", "--next-outcome", "Draft of the first section",
          "--next-first-action", "Turn heading one into a paragraph", "--next-energy", "3", "--next-morale",
          "4", "--next-towards", "2"}},
        {375, "The break is over and goes on: the countdown counts up.", {"tick"}},
        {5, "Five more minutes.", {"break", "extend", "5m"}},
        {120, "That was enough.", {"break", "end"}},
        {10, "The second session starts by the plan that was saved.", {"focus"}},
        {1320, "Done before the time is up.", {"end"}},
        {20,
         "The last review of the block; it needs no next plan.",
         {"review", "--completion", "Yes", "--result", "820 words", "--improvement", "Keep the door closed"}},
        {60,
         "A reflection closes the block.",
         {"reflect", "--output", "Outline and first section", "--comparison", "Faster than usual",
          "--bogged-down", "The order of the headings", "--went-well", "Writing before sorting", "--lessons",
          "The second session is the better one"}},
        {0, "And there it is.", {"history"}},
    };
    return all;
}

std::string quoted(const std::string& word)
{
    return word.find(' ') == std::string::npos ? word : '"' + word + '"';
}

std::string indented(const std::string& text)
{
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        result += line.empty() ? "\n" : "    " + line + "\n";
    }
    return result;
}

/// What the widget and the agent see after a step, a line each.
void printOthers(std::ostream& out, const Workspace& workspace)
{
    const Instant now = workspace.now();
    const WidgetSnapshot widget = workspace.widgetSnapshot(now);
    out << "  widget: " << title(widget.phase) << ", " << QuillmereDesign::caption(widget);
    if (const auto remaining = remainingSeconds(widget, now)) {
        out << ", " << QuillmereDesign::timeText(*remaining)
            << (widget.countdown->isPaused ? " (paused)" : "");
    }
    const QuillmereState state = workspace.look().state;
    const AgentSnapshot agent = StateStore({}, StateStore::renameReplacing).agentSnapshot(state, now);
    out << "\n  agent:  " << agent.workflowState << ", "
        << (agent.interruptible ? "may interrupt" : "must not interrupt") << ", "
        << agent.openQuestions.size() << " open\n\n";
}

/// Runs one command as a person would; throws what it ends with unless it is done.
void play(const Step& step, const fs::path& directory, Environment& environment)
{
    std::ostream& out = environment.out;
    out << localClockText(environment.clock()) << "  " << step.remark << "\n  $ quillmere";
    for (const std::string& word : step.command) {
        out << ' ' << quoted(word);
    }
    out << '\n';
    std::ostringstream answer;
    Environment scene{.in = environment.in,
                      .out = answer,
                      .err = answer,
                      .clock = environment.clock,
                      .inputIsTerminal = false,
                      .outputIsTerminal = environment.outputIsTerminal};
    std::vector<std::string> arguments = {"--directory", directory.string()};
    arguments.insert(arguments.end(), step.command.begin(), step.command.end());
    const ExitCode code = run(arguments, scene);
    out << indented(answer.str());
    if (code != ExitCode::done) {
        throw ProgramError(code, "The tour ended early, in " + directory.string() + ".");
    }
    printOthers(out, Workspace::in(directory, environment.clock));
}

fs::path freshDirectory()
{
    std::string name = (fs::temp_directory_path() / "quillmere-tour-XXXXXX").string();
    if (!::mkdtemp(name.data())) {
        throw fs::filesystem_error("mkdtemp", name, {errno, std::generic_category()});
    }
    return name;
}

void tour(const std::optional<fs::path>& chosen, Program& program)
{
    if (program.settings().json) {
        throw ProgramError(ExitCode::usage, "The tour is for reading; it has no --json.");
    }
    const fs::path directory = chosen ? *chosen : freshDirectory();
    if (FileManager::standard().fileExists(directory / "state.json")) {
        throw ProgramError(ExitCode::usage, "There is a state in " + directory.string() +
                                                " already; the tour wants a directory of its own.");
    }
    Instant now = tourStart;
    Environment stage = program.environment();
    stage.clock = [&now] { return now; };
    for (const Step& step : steps()) {
        now = now + step.secondsLater;
        play(step, directory, stage);
    }
    program.environment().out << "The three files are in " << inert(directory.string()) << '\n';
}

}  // namespace

void addTour(CLI::App& line, Program& program)
{
    const auto directory = std::make_shared<std::optional<fs::path>>();
    addCommand(line, program, "tour", "Watch a whole block being played through", [directory, &program] {
        tour(*directory ? *directory : program.settings().directory, program);
    })->add_option("directory", *directory, "Where to keep its files (usual: a new one)");
}

}  // namespace quillmere::app
