// Brings an earlier version of the state back.
#include "base/system/terminal_width.hpp"
#include "base/text/columns.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/status.hpp"
#include "cli/text_options.hpp"

#include <algorithm>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <system_error>

namespace quillmere::cli {
namespace {

constexpr auto anyWidth = std::numeric_limits<std::size_t>::max();

struct RestoreCommand {
    std::optional<std::int64_t> number;
    bool isAgreed = false;
};

/// What a person knows a version by: null when it cannot be read, absent when it has been let go of.
std::optional<base::Json> contentOf(const workspace::Version& version)
{
    try {
        const std::optional<QuillmereState> state = workspace::Workspace::stateOf(version);
        if (!state) {
            return std::nullopt;
        }
        const WidgetSnapshot summary = WidgetSnapshot::make(*state, version.savedAt);
        return base::Json{{"phase", title(summary.phase)},
                          {"paused", summary.countdown && summary.countdown->isPaused},
                          {"outcome", summary.intendedOutcome},
                          {"finished_blocks", state->blockHistory.size()}};
    } catch (const CodingError&) {
    } catch (const base::Refusal&) {
    } catch (const std::system_error&) {
    }
    return base::Json(nullptr);
}

std::string contentText(const base::Json& content)
{
    if (content.is_null()) {
        return "cannot be read";
    }
    const std::string outcome = content.at("outcome");
    const std::size_t blocks = content.at("finished_blocks");
    // The outcome is the last, since it alone may be long.
    return content.at("phase").get<std::string>() +
           (content.at("paused").get<bool>() ? " (paused), " : ", ") + std::to_string(blocks) +
           (blocks == 1 ? " finished block" : " finished blocks") + (outcome.empty() ? "" : ": " + outcome);
}

std::string versionText(const workspace::Version& version, const base::Json& content)
{
    return base::sanitized(std::to_string(version.number) + "  " +
                           base::localTextToTheSecond(version.savedAt) + "  " + contentText(content));
}

void listVersions(Program& program)
{
    const bool isForPrograms = program.settings().json;
    const bool isForTerminal = program.environment().outputIsTerminal;
    const std::size_t width = isForTerminal ? base::terminalWidth().value_or(anyWidth) : anyWidth;
    std::ostream& out = program.environment().out;
    base::Json list = base::Json::array();
    for (const workspace::Version& version : program.workspace().versions().list()) {
        const std::optional<base::Json> content = contentOf(version);
        if (!content) {
            continue;
        }
        list.push_back({{"number", version.number},
                        {"saved_at", base::instantJson(version.savedAt)},
                        {"content", *content}});
        if (!isForPrograms) {
            out << base::cutToColumns(versionText(version, *content), width) << '\n';
        }
    }
    if (isForPrograms) {
        program.print(list);
    } else {
        out << (list.empty() ? "There is no earlier version yet.\n"
                             : "quillmere restore NUMBER brings one back.\n");
    }
}

/// Refuses where there can be nothing to list or to bring back.
void requireThatVersionsAreKept(Program& program)
{
    if (!program.workspace().stateDirectory().empty()) {
        return;
    }
    const std::filesystem::path& stateHome = program.environment().stateHome;
    throw ProgramError(ExitCode::refused,
                       stateHome.empty()
                           ? "Nothing is kept: set XDG_STATE_HOME, or HOME, to an absolute path."
                           : "Nothing is kept: the place for it, " + (stateHome / "quillmere").string() +
                                 ", lies in the directory of the files.");
}

workspace::Version versionNumbered(std::int64_t number, const workspace::Workspace& workspace)
{
    const std::vector<workspace::Version> versions = workspace.versions().list();
    const auto found =
        std::find_if(versions.begin(), versions.end(),
                     [number](const workspace::Version& version) { return version.number == number; });
    if (found == versions.end()) {
        throw ProgramError(ExitCode::usage, "There is no version " + std::to_string(number) +
                                                "; quillmere restore lists them.");
    }
    return *found;
}

/// Whether the person wants it, or nobody is there to say no and the command line says yes.
bool isWanted(const RestoreCommand& command, const workspace::Version& version,
              base::Environment& environment)
{
    if (command.isAgreed) {
        return true;
    }
    if (!environment.inputIsTerminal) {
        throw ProgramError(ExitCode::usage, "Say --yes to replace what is there now.");
    }
    const std::string question = versionText(version, contentOf(version).value_or(nullptr)) +
                                 "\nPut it in the place of what is there now? That is kept as a version. "
                                 "(yes, no)";
    const std::string answer = askUntil(
        environment, question, [](const std::string& word) { return word == "yes" || word == "no"; });
    return answer == "yes";
}

void restore(const RestoreCommand& command, Program& program)
{
    requireThatVersionsAreKept(program);
    if (!command.number) {
        listVersions(program);
        return;
    }
    const workspace::Version version = versionNumbered(*command.number, program.workspace());
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

}  // namespace quillmere::cli
