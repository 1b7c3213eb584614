// Lists the finished blocks.
#include "base/record_json.hpp"
#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/span_option.hpp"
#include "cli/status.hpp"
#include "cli/text_options.hpp"
#include "figures/local_day.hpp"
#include "figures/look_back.hpp"
#include "lookback/words.hpp"
#include "work/naming.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <ostream>
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

/// Of a finished block; files may lack it.
Instant finishedAt(const Block& block) { return block.completedAt.value_or(block.createdAt); }

/// Time in focus without pauses.
double focusSeconds(const Block& block)
{
    double seconds = 0;
    for (const WorkSession& session : block.sessions) {
        if (const std::optional<figures::SessionTime> time = figures::timeOf(session)) {
            seconds += time->workedSeconds;
        }
    }
    return seconds;
}

void printBlock(std::ostream& out, const Block& block, const std::string& name, base::Hours hours)
{
    out << base::localText(finishedAt(block), hours) << "  " << name << "  " << block.sessions.size()
        << " of " << base::countText(block.cycleCount, "session") << ", "
        << base::durationText(focusSeconds(block)) << " of focus\n";
    for (const Outcome& outcome : block.outcomes) {
        printField(out, "  Outcome", outcome.title);
    }
    for (std::size_t index = 0; index < block.sessions.size(); ++index) {
        if (const auto& review = block.sessions[index].review) {
            const std::string result =
                review->noteworthyResult.empty() ? "" : ", " + review->noteworthyResult;
            printField(out, "  Session " + std::to_string(index + 1),
                       std::string(rawValue(review->completion)) + result);
        }
    }
    if (block.reflection) {
        printField(out, "  Produced", block.reflection->outputProduced);
        printField(out, "  Lessons", block.reflection->lessons);
    }
}

struct HistoryCommand {
    std::vector<std::string> span;  ///< its words
    std::optional<std::size_t> limit;
};

/// The places in the history of the blocks that ended within the range, the newest first.
std::vector<std::size_t> blocksWithin(const figures::Range& range, const QuillmereState& state,
                                      const figures::LocalCalendar& calendar)
{
    std::vector<std::size_t> places;
    for (std::size_t index = 0; index < state.blockHistory.size(); ++index) {
        if (range.contains(calendar.dayOf(finishedAt(state.blockHistory[index])))) {
            places.push_back(index);
        }
    }
    return places;
}

void printBlocks(const std::vector<std::size_t>& places, const QuillmereState& state, Program& program)
{
    if (program.settings().json) {
        base::Json list = base::Json::array();
        for (const std::size_t place : places) {
            list.push_back(base::recordJson(state.blockHistory[place]));
        }
        program.print(list);
        return;
    }
    const std::vector<std::string> names = work::shortNames(state);
    for (const std::size_t place : places) {
        printBlock(program.environment().out, state.blockHistory[place], names[place], program.hours());
    }
}

void showHistory(const HistoryCommand& command, Program& program)
{
    const workspace::Situation situation = program.workspace().look();
    const figures::LocalCalendar calendar(static_cast<int>(program.configuration().values.dayBeginsAtHour));
    const figures::Day today = calendar.dayOf(situation.now);
    const figures::Range range = spanOf(command.span, today);
    std::vector<std::size_t> places = blocksWithin(range, situation.state, calendar);
    const std::size_t all = places.size();
    const std::size_t limit = command.limit.value_or(range.since ? all : usualLimit);
    places.resize(std::min(limit, all));
    const bool isForPerson = !program.settings().json;
    std::ostream& out = program.environment().out;
    if (isForPerson && all > 0 && range.since) {
        out << "Finished " << lookback::rangeText(range, today) << ":\n";
    }
    printBlocks(places, situation.state, program);
    if (isForPerson && all > places.size()) {
        out << all - places.size() << " more; --limit " << all << " shows all\n";
    }
    if (isForPerson && all == 0) {
        out << (range.since ? "No block was finished in that time, " + lookback::rangeText(range, today) + "."
                            : "No block is finished yet.")
            << '\n';
    }
}

}  // namespace

void addHistory(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<HistoryCommand>();
    CLI::App* const app = addCommand(line, program, "history", "List the finished blocks, the newest first",
                                     [command, &program] { showHistory(*command, program); });
    addSpan(*app, command->span);
    app->add_option("--limit", command->limit,
                    "The limit of listed blocks (usual: 10, and all of those days when they are given)")
        ->transform(wholeNumber())
        ->check(limitOfBlocks());
}

}  // namespace quillmere::cli
