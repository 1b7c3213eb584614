#include "cli/block_options.hpp"

#include "base/text/columns.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/prompt.hpp"
#include "work/fields/answers.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace quillmere::cli {
namespace {

constexpr const work::Prompt& outcomePrompt = work::blockFields.front().prompt;
constexpr const work::Prompt& startPrompt = work::blockFields.back().prompt;

/// The question, with what an empty answer keeps behind it.
std::string withPresent(const std::string& question, const std::string& present)
{
    constexpr std::size_t mostColumns = 60;
    return present.empty()
               ? question
               : question + " [" + base::cutToColumns(base::sanitized(present), mostColumns) + "]";
}

std::string titlesOf(const Block& block)
{
    std::string titles;
    for (const Outcome& outcome : block.outcomes) {
        titles += (titles.empty() || outcome.title.empty() ? "" : ", ") + outcome.title;
    }
    return titles;
}

/// The text of a block; empty for a field that is none.
std::string presentText(const Block& block, const work::Prompt& prompt)
{
    const auto row = std::find_if(work::blockFields.begin(), work::blockFields.end(),
                                  [&](const auto& field) { return field.prompt.name == prompt.name; });
    const work::FieldValue value = work::valueIn(block, *row);
    const auto* const text = std::get_if<std::string>(&value);
    return text ? *text : std::string();
}

}  // namespace

void BlockOptions::addTo(CLI::App& command)
{
    fields_.addTo(command);
    command.add_flag("--start", start_, "Begin now")->excludes(fields_.option("at"));
}

void BlockOptions::askForMissing(const Block& present, base::Environment& environment, Instant now)
{
    askForOutcomes(present, environment);
    fields_.askForMissing([&](const work::Prompt& prompt) {
        const std::string question = withPresent(work::promptText(prompt), presentText(present, prompt));
        const std::string answer = ask(environment, question);
        return answer.empty() ? std::nullopt : std::optional(answer);
    });
    if (!hasTime()) {
        askForTime(present, environment, now);
    }
}

void BlockOptions::askForOutcomes(const Block& present, base::Environment& environment)
{
    std::vector<std::string>& outcomes = fields_.items("outcome");
    if (!outcomes.empty()) {
        return;
    }
    const std::string question = withPresent(std::string(outcomePrompt.question), titlesOf(present));
    for (std::string outcome = ask(environment, question); !outcome.empty();
         outcome = ask(environment, "And what else? (empty: nothing)")) {
        outcomes.push_back(outcome);
    }
}

void BlockOptions::askForTime(const Block& present, base::Environment& environment, Instant now)
{
    const bool isKept = present.plannedStart && *present.plannedStart > now;
    const std::string question = isKept ? std::string(startPrompt.question) + " (14:30, +1h; empty: " +
                                              base::localTextSeenFrom(now, *present.plannedStart) + ")"
                                        : work::promptText(startPrompt);
    const std::string when = askUntil(environment, question, [&](const std::string& text) {
        if (!text.empty()) {
            work::requireToCome("at", work::startFrom({"at", text}, now), now);
        }
    });
    start_ = when.empty() && !isKept;
    fields_.give("at", when.empty() ? std::nullopt : std::optional(when));
}

Block BlockOptions::applyTo(Block block, Instant now) const
{
    fields_.applyTo(block, now);
    if (const std::optional<std::string>& at = fields_.given("at")) {
        block.plannedStart = work::startFrom({"at", *at}, now);  // an empty text is a slip here
    }
    if (start_) {
        block.plannedStart.reset();
    } else if (block.plannedStart) {
        work::requireToCome("at", *block.plannedStart, now);
    }
    return block;
}

void BlockOptions::plan(const Block& present, QuillmereState& state, Instant now) const
{
    Block block = applyTo(present, now);
    if (block.plannedStart) {
        WorkflowEngine().scheduleBlock(state, std::move(block), now);
    } else {
        WorkflowEngine().startBlock(state, std::move(block), now);
    }
}

}  // namespace quillmere::cli
