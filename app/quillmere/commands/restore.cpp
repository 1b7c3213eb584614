// Brings an earlier version of the state back.
#include "commands/commands.hpp"
#include "commands/fields.hpp"
#include "commands/prompt.hpp"
#include "exit_code.hpp"
#include "report/status.hpp"
#include "text/inert.hpp"
#include "text/local_time.hpp"

#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>

namespace quillmere::app {
namespace {

struct RestoreCommand {
    std::optional<std::int64_t> number;
    bool isAgreed = false;
};

/// What a person knows a version by; absent when it cannot be read.
std::optional<Json> contentOf(const Version& version)
{
    try {
        const QuillmereState state = Workspace::stateOf(version);
        const WidgetSnapshot summary = WidgetSnapshot::make(state, version.savedAt);
        return Json{{"phase", title(summary.phase)},
                    {"outcome", summary.intendedOutcome},
                    {"finished_blocks", state.blockHistory.size()}};
    } catch (const CodingError&) {
        return std::nullopt;
    } catch (const ProgramError&) {
        return std::nullopt;
    }
}

std::string contentText(const std::optional<Json>& content)
{
    if (!content) {
        return "cannot be read";
    }
    const std::string outcome = content->at("outcome");
    const std::size_t blocks = content->at("finished_blocks");
    return content->at("phase").get<std::string>() + (outcome.empty() ? "" : ": " + outcome) + ", " +
           std::to_string(blocks) + (blocks == 1 ? " finished block" : " finished blocks");
}

std::string versionText(const Version& version)
{
    return std::to_string(version.number) + "  " + localText(version.savedAt) + "  " +
           contentText(contentOf(version));
}

void listVersions(Program& program)
{
    const std::vector<Version> versions = program.workspace().versions().list();
    if (program.settings().json) {
        Json list = Json::array();
        for (const Version& version : versions) {
            list.push_back({{"number", version.number},
                            {"saved_at", instantJson(version.savedAt)},
                            {"content", contentOf(version).value_or(nullptr)}});
        }
        program.print(list);
        return;
    }
    std::ostream& out = program.environment().out;
    for (const Version& version : versions) {
        out << inert(versionText(version)) << '\n';
    }
    out << (versions.empty() ? "There is no earlier version yet.\n"
                             : "quillmere restore NUMBER brings one back.\n");
}

Version versionNumbered(std::int64_t number, const Workspace& workspace)
{
    const std::vector<Version> versions = workspace.versions().list();
    const auto found = std::find_if(versions.begin(), versions.end(),
                                    [number](const Version& version) { return version.number == number; });
    if (found == versions.end()) {
        throw ProgramError(ExitCode::usage, "There is no version " + std::to_string(number) +
                                                "; quillmere restore lists them.");
    }
    return *found;
}

/// Whether the person wants it, or nobody is there to say no and the command line says yes.
bool isWanted(const RestoreCommand& command, const Version& version, Environment& environment)
{
    if (command.isAgreed) {
        return true;
    }
    if (!environment.inputIsTerminal) {
        throw ProgramError(ExitCode::usage, "Say --yes to replace what is there now.");
    }
    const std::string question = inert(versionText(version)) +
                                 "\nPut it in the place of what is there now? That is kept as a version. "
                                 "(yes, no)";
    const std::string answer = askUntil(
        environment, question, [](const std::string& word) { return word == "yes" || word == "no"; });
    return answer == "yes";
}

void restore(const RestoreCommand& command, Program& program)
{
    if (!command.number) {
        listVersions(program);
        return;
    }
    const Version version = versionNumbered(*command.number, program.workspace());
    if (!isWanted(command, version, program.environment())) {
        throw ProgramError(ExitCode::refused, "Nothing was changed.");
    }
    program.bringBack(version);
}

}  // namespace

void addRestore(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<RestoreCommand>();
    CLI::App* const app = addCommand(line, program, "restore", "List earlier versions, or bring one back",
                                     [command, &program] { restore(*command, program); });
    app->add_option("version", command->number, "The number of the version to bring back")
        ->transform(wholeNumber());
    app->add_flag("--yes", command->isAgreed, "Do not ask");
}

}  // namespace quillmere::app
