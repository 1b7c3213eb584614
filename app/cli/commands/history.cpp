// Lists the finished blocks.
#include "base/record_json.hpp"
#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/status.hpp"
#include "cli/text_options.hpp"
#include "figures/look_back.hpp"
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
    out << base::localText(block.completedAt.value_or(block.createdAt), hours) << "  " << name << "  "
        << block.sessions.size() << " of " << base::countText(block.cycleCount, "session") << ", "
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

void showHistory(std::size_t limit, Program& program)
{
    const QuillmereState state = program.workspace().look().state;
    const std::size_t count = std::min(limit, state.blockHistory.size());
    if (program.settings().json) {
        base::Json list = base::Json::array();
        for (std::size_t index = 0; index < count; ++index) {
            list.push_back(base::recordJson(state.blockHistory[index]));
        }
        program.print(list);
        return;
    }
    std::ostream& out = program.environment().out;
    const std::vector<std::string> names = work::shortNames(state);
    for (std::size_t index = 0; index < count; ++index) {
        printBlock(out, state.blockHistory[index], names[index], program.hours());
    }
    if (const std::size_t all = state.blockHistory.size(); all > count) {
        out << all - count << " more; --limit " << all << " shows all\n";
    }
    if (state.blockHistory.empty()) {
        out << "No block is finished yet.\n";
    }
}

}  // namespace

void addHistory(CLI::App& line, Program& program)
{
    constexpr std::size_t usualLimit = 10;
    const auto limit = std::make_shared<std::size_t>(usualLimit);
    addCommand(line, program, "history", "List the finished blocks, the newest first",
               [limit, &program] { showHistory(*limit, program); })
        ->add_option("--limit", *limit, "The limit of listed blocks")
        ->transform(wholeNumber())
        ->check(limitOfBlocks())
        ->capture_default_str();
}

}  // namespace quillmere::cli
