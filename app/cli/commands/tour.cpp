// Plays a whole block with real files, on a clock of its own, and shows what person, widget and agent see.
#include "base/record_json.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/run.hpp"
#include "cli/status.hpp"
#include "cli/widget_report.hpp"
#include "work/countdown.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <stdlib.h>

#include <memory>
#include <ostream>
#include <sstream>

namespace quillmere::cli {
namespace {

namespace fs = std::filesystem;

/// One scene: some time passes, then a command runs.
struct Scene {
    double secondsLater;
    std::string_view remark;
    std::vector<std::string> command;
};

/// Monday, 2 March 2026, 09:00 UTC.
constexpr Instant tourStart{1'772'442'000};

const std::vector<Scene>& scenes()
{
    static const std::vector<Scene> all = {
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

AgentSnapshot agentSummary(const workspace::Situation& situation)
{
    return StateStore({}, StateStore::renameReplacing).agentSnapshot(situation.state, situation.now);
}

/// Prints what the widget and the agent see after a scene, one line each.
void printWidgetAndAgent(std::ostream& out, const workspace::Workspace& workspace)
{
    const Instant now = workspace.now();
    const WidgetSnapshot widget = workspace.widgetSnapshot(now);
    out << "  widget: " << title(widget.phase) << ", " << QuillmereDesign::caption(widget);
    if (const auto remaining = work::remainingSeconds(widget, now)) {
        out << ", " << QuillmereDesign::timeText(*remaining)
            << (widget.countdown->isPaused ? " (paused)" : "");
    }
    const AgentSnapshot agent = agentSummary(workspace.look());
    out << "\n  agent:  " << agent.workflowState << ", "
        << (agent.interruptible ? "may interrupt" : "must not interrupt") << ", "
        << agent.openQuestions.size() << " open\n\n";
}

/// The arguments of the scene, with the directory.
std::vector<std::string> wordsOf(const Scene& scene, const fs::path& directory)
{
    std::vector<std::string> words = {"--directory", directory.string()};
    words.insert(words.end(), scene.command.begin(), scene.command.end());
    return words;
}

/// Runs the program in this process, without a terminal to ask on.
ExitCode runScene(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
                  const base::Environment& environment)
{
    base::Environment scene{.in = environment.in,
                            .out = out,
                            .err = err,
                            .clock = environment.clock,
                            .inputIsTerminal = false,
                            .outputIsTerminal = environment.outputIsTerminal};
    return run(words, scene);
}

std::string earlyEnd(const fs::path& directory)
{
    return "The tour ended early, in " + directory.string() + ".";
}

/// Plays a scene and prints it for a person.
void showScene(const Scene& scene, const fs::path& directory, const base::Environment& environment)
{
    std::ostream& out = environment.out;
    out << base::localClockText(environment.clock()) << "  " << scene.remark << "\n  $ quillmere";
    for (const std::string& word : scene.command) {
        out << ' ' << quoted(word);
    }
    out << '\n';
    std::ostringstream answer;
    const ExitCode code = runScene(wordsOf(scene, directory), answer, answer, environment);
    out << indented(answer.str());
    if (code != ExitCode::done) {
        throw ProgramError(code, earlyEnd(directory));
    }
    printWidgetAndAgent(out, workspace::Workspace::in(directory, environment.clock));
}

/// Plays a scene; returns the command, its result and what person, widget and agent see.
base::Json sceneJson(const Scene& scene, const fs::path& directory, const base::Environment& environment)
{
    const std::vector<std::string> words = wordsOf(scene, directory);
    std::vector<std::string> wordsForPrograms = {"--json"};
    wordsForPrograms.insert(wordsForPrograms.end(), words.begin(), words.end());
    std::ostringstream answer;
    std::ostringstream messages;
    const ExitCode code = runScene(wordsForPrograms, answer, messages, environment);
    if (code != ExitCode::done) {
        const std::string reason = base::Json::parse(messages.str()).at("error").at("message");
        throw ProgramError(code, earlyEnd(directory) + " " + reason);
    }
    const workspace::Workspace workspace = workspace::Workspace::in(directory, environment.clock);
    const workspace::Situation situation = workspace.look();
    return {
        {"at", base::instantJson(situation.now)},
        {"remark", scene.remark},
        {"command", words},
        {"result", base::Json::parse(answer.str())},
        {"person", statusJson(situation)},
        {"widget", widgetJson(workspace.widgetSnapshot(situation.now), situation.now)},
        {"agent", base::recordJson(agentSummary(situation))},
    };
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
    const std::optional<fs::path>& option = program.settings().directory;
    if (chosen && option) {
        throw ProgramError(ExitCode::usage,
                           "Two directories are given; name one, as an argument or by --directory.");
    }
    const fs::path directory = chosen ? *chosen : option ? *option : freshDirectory();
    if (FileManager::standard().fileExists(directory / "state.json")) {
        throw ProgramError(ExitCode::usage,
                           directory.string() + " already holds a state.json; name an empty directory.");
    }
    Instant now = tourStart;
    base::Environment stage = program.environment();
    stage.clock = [&now] { return now; };
    stage.configDirectory.clear();  // the same tour for everyone
    base::Json all = base::Json::array();
    for (const Scene& scene : scenes()) {
        now = now + scene.secondsLater;
        if (program.settings().json) {
            all.push_back(sceneJson(scene, directory, stage));
        } else {
            showScene(scene, directory, stage);
        }
    }
    if (program.settings().json) {
        program.print(all);
    } else {
        program.environment().out << "The three files are in " << base::sanitized(directory.string()) << '\n';
    }
}

}  // namespace

void addTour(CLI::App& line, Program& program)
{
    const auto directory = std::make_shared<std::optional<fs::path>>();
    addCommand(line, program, "tour", "Play a whole block on a clock of its own, and show it",
               [directory, &program] { tour(*directory, program); })
        ->add_option("directory", *directory, "Where to keep its files (usual: a new temporary one)")
        ->type_name("DIRECTORY");
}

}  // namespace quillmere::cli
