// Lists earlier versions of the state, or restores one.
#include "base/system/terminal_width.hpp"
#include "base/text/columns.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/kept_versions.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "cli/version_report.hpp"
#include "workspace/catching_up.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <ostream>

namespace quillmere::cli {
namespace {

constexpr auto anyWidth = std::numeric_limits<std::size_t>::max();

struct RestoreCommand {
    std::optional<std::int64_t> number;
    bool isConfirmed = false;
    bool comparesOnly = false;
};

void printVersion(std::ostream& out, const ListedVersion& listed, std::size_t width, base::Hours hours)
{
    out << base::cutToColumns(versionText(listed, hours), width) << '\n';
    if (const std::string then = replacementText(listed); !then.empty()) {
        out << base::cutToColumns(then, width) << '\n';
    }
}

void listVersions(Program& program)
{
    const bool isForTerminal = program.environment().outputIsTerminal;
    const std::size_t width = isForTerminal ? base::terminalWidth().value_or(anyWidth) : anyWidth;
    std::ostream& out = program.environment().out;
    base::Json list = base::Json::array();
    VersionWalk walk(program.workspace());
    for (const workspace::Version& version : program.workspace().versions().list()) {
        const std::optional<ListedVersion> listed = walk.next(version);
        if (!listed) {
            continue;
        }
        list.push_back(versionJson(*listed));
        if (!program.settings().json) {
            printVersion(out, *listed, width, program.hours());
        }
    }
    if (program.settings().json) {
        program.print(list);
    } else {
        out << (list.empty() ? "There is no earlier version yet.\n"
                             : "quillmere restore NUMBER restores one of them; "
                               "with --diff it says what that would change.\n");
    }
}

ProgramError noVersion(std::int64_t number)
{
    return {ExitCode::usage,
            "There is no version " + std::to_string(number) + "; quillmere restore lists the versions."};
}

workspace::Version versionNumbered(std::int64_t number, const workspace::Workspace& workspace)
{
    const std::vector<workspace::Version> versions = workspace.versions().list();
    const auto found =
        std::find_if(versions.begin(), versions.end(),
                     [number](const workspace::Version& version) { return version.number == number; });
    if (found == versions.end()) {
        throw noVersion(number);
    }
    return *found;
}

void requireConfirmation(const RestoreCommand& command, const workspace::Version& version, Program& program)
{
    if (!command.isConfirmed) {
        requireAgreement(program.environment(),
                         versionText(VersionWalk().next(version).value_or(ListedVersion{version, {}, {}}),
                                     program.hours()) +
                             "\nReplace the current state by it? The current state is kept as a version.");
    }
}

/// As the version would be restored: with the time that has passed since recorded.
void compare(const workspace::Version& version, Program& program)
{
    std::optional<QuillmereState> state = workspace::stateOf(version);
    if (!state) {
        throw noVersion(version.number);
    }
    const workspace::Situation present = program.workspace().look();
    workspace::catchUp(*state, present.now);
    const work::WayBack way = work::describeWayBack(*state, present.state, present.now);
    if (program.settings().json) {
        program.print(wayBackJson(version, way));
    } else {
        program.environment().out << wayBackText(version, way);
    }
}

void restore(const RestoreCommand& command, Program& program)
{
    requireVersionsKept(program);
    if (!command.number) {
        listVersions(program);
        return;
    }
    const workspace::Version version = versionNumbered(*command.number, program.workspace());
    if (command.comparesOnly) {
        compare(version, program);
        return;
    }
    requireConfirmation(command, version, program);
    program.restore(version);
}

}  // namespace

void addRestore(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<RestoreCommand>();
    CLI::App* const app = addCommand(line, program, "restore", "List earlier versions, or restore one",
                                     [command, &program] { restore(*command, program); });
    CLI::Option* const number =
        app->add_option("version", command->number, "The number of the version to restore")
            ->type_name("VERSION")
            ->transform(wholeNumber());
    CLI::Option* const yes =
        app->add_flag("--yes", command->isConfirmed, "Replace the current state without asking");
    app->add_flag("--diff", command->comparesOnly, "Say what restoring it would change, and change nothing")
        ->needs(number)
        ->excludes(yes);
}

}  // namespace quillmere::cli
