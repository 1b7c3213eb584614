#include "cli/block_options.hpp"

#include "cli/outcome_prompts.hpp"
#include "cli/prompt.hpp"
#include "work/fields/answers.hpp"
#include "work/times_text.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace quillmere::cli {
namespace {

constexpr const work::RecordField<Block>& startField = work::blockFields.back();

bool isStart(const work::RecordField<Block>& field)
{
    return std::holds_alternative<std::optional<Instant> Block::*>(field.member);
}

/// Whether the planned start may be kept.
bool hasStartToCome(const Block& block, Instant now)
{
    return block.plannedStart && *block.plannedStart > now;
}

}  // namespace

void BlockOptions::addTo(CLI::App& command)
{
    fields_.addTo(command);
    command.add_flag("--start", start_, "Begin now")->excludes(fields_.option("at"));
}

void BlockOptions::askForMissing(const Block& present, const Asking& asking)
{
    explainPrompts(asking.environment);
    if (fields_.items("outcome").empty()) {
        outcomes_ = askForOutcomes(asking, present);
    }
    fields_.askForMissing([&](const work::RecordField<Block>& field) {
        return isStart(field) ? std::nullopt : askForField(asking, field, present);
    });
    tellTimes(present, asking);
    if (!hasTime()) {
        askForTime(present, asking);
    }
}

void BlockOptions::askForTime(const Block& present, const Asking& asking)
{
    const Instant now = asking.here.now;
    const bool isKept = hasStartToCome(present, now);
    constexpr std::string_view begun = "now";
    const Question question{
        .text = std::string(startField.prompt.question) + " (14:30, +1h)",
        .present = isKept ? base::localTextSeenFrom(asking.here, *present.plannedStart) : std::string(begun)};
    const std::optional<std::string> when =
        askToChange(asking.environment, question, [&](const std::string& text) {
            if (!text.empty() && text != begun) {
                work::requireToCome("at", work::startFrom({"at", text}, now), asking.here);
            }
        });
    start_ = when ? when->empty() || *when == begun : !isKept;
    if (when && !start_) {
        fields_.give("at", when);
        tellTimes(present, asking);
    }
}

void BlockOptions::tellTimes(const Block& present, const Asking& asking) const
{
    Block block = present;
    if (start_ || !hasStartToCome(present, asking.here.now)) {
        block.plannedStart.reset();
    }
    fields_.applyTo(block, asking.here.now);
    tell(asking.environment, work::timesText(block, asking.here));
}

Block BlockOptions::applyTo(Block block, const base::SeenFrom& here) const
{
    fields_.applyTo(block, here.now);
    if (outcomes_) {
        block.outcomes = work::outcomesFrom(*outcomes_);
    }
    if (const std::optional<std::string>& at = fields_.given("at")) {
        block.plannedStart = work::startFrom({"at", *at}, here.now);  // an empty text is a slip here
    }
    if (start_) {
        block.plannedStart.reset();
    } else if (block.plannedStart) {
        work::requireToCome("at", *block.plannedStart, here);
    }
    return block;
}

void BlockOptions::plan(const Block& present, QuillmereState& state, const base::SeenFrom& here) const
{
    Block block = applyTo(present, here);
    if (block.plannedStart) {
        WorkflowEngine().scheduleBlock(state, std::move(block), here.now);
    } else {
        WorkflowEngine().startBlock(state, std::move(block), here.now);
    }
}

}  // namespace quillmere::cli
