// The look back on finished sessions: charts in the terminal, a page, exports.
#include "base/system/asked_background.hpp"
#include "base/system/replace_file.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/pager.hpp"
#include "cli/span_option.hpp"
#include "figures/statistics.hpp"
#include "lookback/calendar_file.hpp"
#include "lookback/contents.hpp"
#include "lookback/csv.hpp"
#include "lookback/json_report.hpp"
#include "lookback/page/html_page.hpp"
#include "lookback/terminal/terminal_page.hpp"
#include "lookback/terminal/terminal_report.hpp"
#include "lookback/words.hpp"
#include "work/habits.hpp"

#include <quillmere/widget/app_group.hpp>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <ostream>
#include <vector>

namespace quillmere::cli {
namespace {

/// A file format of the look back.
struct Export {
    const char* option;
    const char* help;
    std::string_view name;
    std::string (*text)(const figures::LookBack&, const lookback::PageScope&);
};

constexpr auto exports = std::to_array<Export>({
    {"--html", "Make a page for a browser", "page", lookback::htmlPage},
    {"--csv", "Make a table of the sessions for spreadsheets", "table",
     [](const figures::LookBack& look, const lookback::PageScope&) { return lookback::csvOf(look); }},
    {"--ics", "Make a calendar of the sessions", "calendar",
     [](const figures::LookBack& look, const lookback::PageScope&) { return lookback::calendarOf(look); }},
});

constexpr std::string_view standardOutput = "-";

/// The words of --without.
constexpr const char* texts = "texts";
constexpr const char* ratings = "ratings";

struct ReportOptions {
    std::vector<std::string> span;  ///< its words
    std::optional<std::string> since;
    std::optional<std::string> until;
    bool all = false;
    std::vector<std::string> without;                              ///< words of --without
    std::array<std::optional<std::string>, exports.size()> files;  ///< by index in `exports`
};

figures::Range rangeOf(const ReportOptions& options, figures::Day today)
{
    figures::Range range = spanOf(options.span, today);
    if (options.since) {
        range.since = spanOfOption("--since", *options.since, today).since;
    }
    if (options.until) {
        range.until = spanOfOption("--until", *options.until, today).until;
    }
    if (range.since && range.until && *range.since > *range.until) {
        throw ProgramError(ExitCode::usage, "--since: is later than --until");
    }
    return range;
}

/// The directories with files of this program: those of this run, and the default ones of the user.
std::vector<std::filesystem::path> ownDirectories(const workspace::Workspace& workspace)
{
    const FileManager& fileManager = FileManager::standard();
    std::vector<std::filesystem::path> directories = {workspace.directory()};
    if (!fileManager.applicationSupportDirectories().empty()) {
        directories.push_back(StateStore::defaultDirectory(fileManager));
    }
    if (const auto shared = fileManager.containerDirectory(QuillmereAppGroup::identifier)) {
        directories.push_back(*shared);
    }
    if (!workspace.stateDirectory().empty()) {
        directories.push_back(workspace.stateDirectory().parent_path());
    }
    return directories;
}

/// An export must not replace the data that it is made from.
void requireOutside(const std::string& file, const std::vector<std::filesystem::path>& directories)
{
    const std::filesystem::path destination = base::destinationOf(file);
    if (std::any_of(directories.begin(), directories.end(),
                    [&](const auto& directory) { return base::liesWithin(destination, directory); })) {
        throw ProgramError(ExitCode::usage,
                           file + " lies where Quillmere keeps its own files; choose another place.");
    }
}

/// Otherwise only the last of several exports would remain.
void requireDifferentFiles(const ReportOptions& options)
{
    std::map<std::filesystem::path, std::string> optionsByFile;
    for (std::size_t index = 0; index < exports.size(); ++index) {
        const std::optional<std::string>& file = options.files[index];
        if (!file || file == standardOutput) {
            continue;
        }
        const std::string option = exports[index].option;
        const auto [other, isNew] = optionsByFile.emplace(base::destinationOf(*file), option);
        if (!isNew) {
            throw ProgramError(ExitCode::usage,
                               option + ": is the same file as that of " + other->second + "; name another");
        }
    }
}

void requireAllowedFiles(const ReportOptions& options, Program& program)
{
    int printed = program.settings().json ? 1 : 0;
    const std::vector<std::filesystem::path> directories = ownDirectories(program.workspace());
    for (const std::optional<std::string>& file : options.files) {
        if (file == standardOutput) {
            ++printed;
        } else if (file) {
            requireOutside(*file, directories);
        }
    }
    if (printed > 1) {
        throw ProgramError(ExitCode::usage,
                           "Only one of --json and the exports to - can go to standard output.");
    }
    requireDifferentFiles(options);
}

/// The stream for messages: not standard output if an export goes there.
std::ostream& messagesOf(const ReportOptions& options, Program& program)
{
    const bool printsExport =
        std::find(options.files.begin(), options.files.end(), standardOutput) != options.files.end();
    return printsExport ? program.environment().err : program.environment().out;
}

/// Prints an export. On a terminal each line is sanitized.
void printExport(const std::string& text, Program& program)
{
    std::ostream& out = program.environment().out;
    if (!program.environment().outputIsTerminal) {
        out << text;
        return;
    }
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = std::string_view(text).substr(begin, end - begin);
        out << base::sanitized(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line) << '\n';
        begin = end + 1;
    }
}

void makeExport(const Export& form, const std::string& file, const std::string& text,
                const figures::LookBack& look, std::ostream& messages, Program& program)
{
    if (file == standardOutput) {
        printExport(text, program);
        return;
    }
    base::replaceFile(file, text);
    if (!program.settings().json) {
        const bool isPart = look.range.since || look.range.until;
        messages << "The " << form.name << (isPart ? " of " + lookback::rangeText(look) : "") << " is in "
                 << base::sanitized(file) << ".\n";
    }
}

/// A week or less on one screen, unless everything is asked for.
std::string textFor(const figures::LookBack& look, bool all, const lookback::TerminalPage& terminal)
{
    const figures::Range& range = look.range;
    const bool isShort =
        range.since && range.until.value_or(look.today) - *range.since < std::chrono::weeks(1);
    return isShort && !all ? lookback::terminalSummary(look, terminal)
                           : lookback::terminalReport(look, terminal);
}

/// The colours of all surfaces, where the terminal says what they stand on.
base::Style styleOfPage(const base::Environment& environment)
{
    const base::ColourDepth depth = base::wantedColours(environment.outputIsTerminal);
    const bool canAsk = environment.inputIsTerminal && environment.input != -1 && environment.output != -1;
    const std::optional<base::Background> background =
        depth > base::ColourDepth::of16 && canAsk
            ? base::askedBackground(environment.input, environment.output)
            : std::nullopt;
    return background ? base::Style(depth, *background) : base::Style(depth != base::ColourDepth::none);
}

lookback::PageScope scopeOf(const ReportOptions& options)
{
    const auto isIn = [&](const char* word) {
        return std::find(options.without.begin(), options.without.end(), word) == options.without.end();
    };
    return {.blocks = options.all ? lookback::allBlocksOnPage : lookback::usualBlocksOnPage,
            .contents = {.texts = isIn(texts), .ratings = isIn(ratings)}};
}

void showReport(const ReportOptions& options, Program& program)
{
    requireAllowedFiles(options, program);
    const lookback::PageScope scope = scopeOf(options);
    workspace::Situation situation = program.workspace().look();
    if (!options.without.empty()) {
        situation.state = lookback::reducedTo(scope.contents, std::move(situation.state));
    }
    const figures::Habits habits = work::habitsOf(program.configuration().values);
    const figures::Day today = figures::LocalCalendar(habits.dayBeginsAtHour).dayOf(situation.now);
    const figures::LookBack look =
        figures::statistics(situation.state, rangeOf(options, today), today, habits);
    bool isExported = false;
    for (std::size_t index = 0; index < exports.size(); ++index) {
        if (const std::optional<std::string>& file = options.files[index]) {
            makeExport(exports[index], *file, exports[index].text(look, scope), look,
                       messagesOf(options, program), program);
            isExported = true;
        }
    }
    if (program.settings().json) {
        program.print(lookback::lookBackJson(look));
    } else if (!isExported) {
        page(program.environment(), textFor(look, options.all,
                                            lookback::terminalPage(styleOfPage(program.environment()),
                                                                   program.environment().outputIsTerminal)));
    }
}

/// By index in `exports`.
std::array<CLI::Option*, exports.size()> addExports(CLI::App& command, ReportOptions& options)
{
    std::array<CLI::Option*, exports.size()> added = {};
    for (std::size_t index = 0; index < exports.size(); ++index) {
        added[index] = command.add_option(exports[index].option, options.files[index],
                                          std::string(exports[index].help) + "; - is standard output");
        added[index]->type_name("FILE")->check(
            [](const std::string& file) { return std::string(file.empty() ? "is empty" : ""); });
    }
    return added;
}

}  // namespace

void addReport(CLI::App& line, Program& program)
{
    const auto options = std::make_shared<ReportOptions>();
    CLI::App* const command =
        addCommand(line, program, "report", "Look back: focus time, completion, streaks",
                   [options, &program] { showReport(*options, program); });
    CLI::Option* const span = addSpan(*command, options->span);
    command->add_option("--since", options->since, "The first day, or a span that begins with it")
        ->type_name("SPAN")
        ->excludes(span);
    command->add_option("--until", options->until, "The last day, or a span that ends with it")
        ->type_name("SPAN")
        ->excludes(span);
    const auto files = addExports(*command, *options);
    command->add_flag("--all", options->all,
                      "Show tables and charts of a week or less too; on the page of --html tell all blocks, "
                      "not only the newest 100");
    CLI::Option* const without = command->add_option("--without", options->without,
                                                     "Make the page of --html for somebody else: without any "
                                                     "text that you wrote, or without the ratings of "
                                                     "energy and morale; may be given twice");
    without->type_name("texts|ratings")->allow_extra_args(false);
    without->check(CLI::IsMember({texts, ratings}).description(""));
    without->needs(files[0])->excludes(files[1])->excludes(files[2]);
}

}  // namespace quillmere::cli
