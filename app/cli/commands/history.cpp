// Lists the finished blocks, or shows one whole.
#include "base/reach.hpp"
#include "base/record_json.hpp"
#include "base/text/columns.hpp"
#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "base/text/quotes.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/pager.hpp"
#include "cli/recall_text.hpp"
#include "cli/span_option.hpp"
#include "cli/text_options.hpp"
#include "figures/local_day.hpp"
#include "figures/look_back.hpp"
#include "figures/span.hpp"
#include "lookback/words.hpp"
#include "work/naming.hpp"
#include "work/recall/block_account.hpp"
#include "work/recall/search.hpp"
#include "work/recall/session_signs.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace quillmere::cli {
namespace {

constexpr std::size_t usualLimit = 10;
constexpr std::int64_t mostBlocks = std::numeric_limits<std::int64_t>::max();

/// Accepts a number from 1.
CLI::Validator limitOfBlocks()
{
    return {[](std::string& text) -> std::string {
                const bool isPositive = std::stoll(text) >= 1;
                return isPositive ? "" : "is not between 1 and " + std::to_string(mostBlocks) + ": " + text;
            },
            ""};
}

struct HistoryCommand {
    std::vector<std::string> words;  ///< of a span, or the name of a block or session
    std::optional<std::string> since;
    std::optional<std::string> search;
    std::optional<std::size_t> limit;
};

/// A part of the history: the places of its blocks, the newest first.
struct Listing {
    std::vector<std::size_t> places;
    figures::Range range;
    figures::Day today;
};

figures::Range rangeOf(const HistoryCommand& command, figures::Day today)
{
    return command.since ? figures::Range{.since = spanOfOption("--since", *command.since, today).since,
                                          .until = std::nullopt}
                         : spanOf(command.words, today);
}

Listing listingOf(const HistoryCommand& command, const workspace::Situation& situation, Program& program)
{
    const figures::LocalCalendar calendar(static_cast<int>(program.configuration().values.dayBeginsAtHour));
    Listing listing{.places = {}, .range = {}, .today = calendar.dayOf(situation.now)};
    listing.range = rangeOf(command, listing.today);
    const work::SearchedText searched(command.search.value_or(""));
    const std::vector<Block>& history = situation.state.blockHistory;
    for (std::size_t place = 0; place < history.size(); ++place) {
        const Block& block = history[place];
        if (listing.range.contains(calendar.dayOf(base::finishedAt(block))) &&
            searched.occursIn(block, situation.now)) {
            listing.places.push_back(place);
        }
    }
    return listing;
}

void printBlock(std::ostream& out, const Block& block, const std::string& name, base::Hours hours,
                std::size_t columns)
{
    out << base::localText(base::finishedAt(block), hours) << "  " << name << "  " << work::signsOf(block)
        << "  " << block.sessions.size() << " of " << base::countText(block.cycleCount, "session") << ", "
        << base::durationText(work::focusSecondsOf(block)) << " of focus\n";
    for (const work::Fact& fact : work::outcomesWithSessions(block)) {
        const bool isOutcome = fact.label == work::outcomeLabel;
        const std::string line = (isOutcome ? "  " : "    " + fact.label + "  ") + base::sanitized(fact.text);
        out << base::cutToColumns(line, columns) << '\n';
    }
}

std::string headingOf(const Listing& listing)
{
    return listing.range.since ? "Finished " + lookback::rangeText(listing.range, listing.today) + ":\n" : "";
}

std::string nothingText(const HistoryCommand& command, const Listing& listing)
{
    if (command.search) {
        return "No finished block has " + base::inQuotes(*command.search) + " in its words.\n";
    }
    return listing.range.since ? "No block was finished in that time, " +
                                     lookback::rangeText(listing.range, listing.today) + ".\n"
                               : "No block is finished yet.\n";
}

std::string listText(const HistoryCommand& command, const Listing& listing, std::size_t limit,
                     const QuillmereState& state, Program& program)
{
    if (listing.places.empty()) {
        return nothingText(command, listing);
    }
    std::ostringstream text;
    text << headingOf(listing);
    const std::vector<std::string> names = work::shortNames(state);
    const std::size_t shown = std::min(limit, listing.places.size());
    for (std::size_t index = 0; index < shown; ++index) {
        const std::size_t place = listing.places[index];
        printBlock(text, state.blockHistory[place], names[place], program.hours(), textColumns());
    }
    if (shown < listing.places.size()) {
        text << listing.places.size() - shown << " more; --limit " << listing.places.size() << " shows all\n";
    }
    return text.str();
}

void printJson(const Listing& listing, std::size_t limit, const QuillmereState& state, Program& program)
{
    base::Json list = base::Json::array();
    for (std::size_t index = 0; index < std::min(limit, listing.places.size()); ++index) {
        list.push_back(base::recordJson(state.blockHistory[listing.places[index]]));
    }
    program.print(list);
}

void showList(const HistoryCommand& command, const workspace::Situation& situation, Program& program)
{
    const Listing listing = listingOf(command, situation, program);
    const bool isChosen = listing.range.since || command.search;
    const std::size_t limit = command.limit.value_or(isChosen ? listing.places.size() : usualLimit);
    if (program.settings().json) {
        printJson(listing, limit, situation.state, program);
    } else {
        page(program.environment(),
             base::sanitizedLines(listText(command, listing, limit, situation.state, program)));
    }
}

/// A block whole, or one session of it.
void showNamed(const std::string& name, const workspace::Situation& situation, Program& program)
{
    const work::Named named = work::named(name, situation.state);
    if (program.settings().json) {
        program.print(named.session ? base::recordJson(*named.session) : base::recordJson(named.block));
        return;
    }
    const base::SeenFrom here(situation.now, program.hours());
    std::ostringstream text;
    printRecall(text,
                named.session ? work::Recall{work::accountOf(*named.session, named.block, here)}
                              : work::accountOf(named.block, here),
                program.style(), textColumns());
    page(program.environment(), text.str().substr(1));  // without the empty line at its beginning
}

/// Whether the words name a block or session, and no span: both are typed in the same place.
bool isName(const HistoryCommand& command, const workspace::Situation& situation, Program& program)
{
    const figures::LocalCalendar calendar(static_cast<int>(program.configuration().values.dayBeginsAtHour));
    return command.words.size() == 1 &&
           !figures::spanFromText(command.words.front(), calendar.dayOf(situation.now));
}

void showHistory(const HistoryCommand& command, Program& program)
{
    const workspace::Situation situation = program.workspace().look();
    if (isName(command, situation, program)) {
        showNamed(command.words.front(), situation, program);
    } else {
        showList(command, situation, program);
    }
}

}  // namespace

void addHistory(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<HistoryCommand>();
    CLI::App* const app =
        addCommand(line, program, "history", "List the finished blocks, the newest first, or show one whole",
                   [command, &program] { showHistory(*command, program); });
    CLI::Option* const words =
        addSpan(*app, command->words)
            ->type_name("HISTORY")
            ->description(
                "A block or session to show whole, such as 9F1C or 9F1C.2; or the days to list: today, "
                "yesterday, monday, week, last week, month, 7d, 2026-10, 2026-10-05");
    app->add_option("--since", command->since, "The first day, or a span that begins with it")
        ->type_name("SPAN")
        ->excludes(words);
    app->add_option("--search", command->search, "Only blocks with this in their words, in either case")
        ->check(wellFormedText());
    app->add_option("--limit", command->limit,
                    "The limit of listed blocks (usual: 10, and all of those that days or a word choose)")
        ->transform(wholeNumber())
        ->check(limitOfBlocks());
}

}  // namespace quillmere::cli
