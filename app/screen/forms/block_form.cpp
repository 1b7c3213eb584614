// A block: what it is for, and how long it lasts.
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "screen/fields/list_field.hpp"
#include "screen/forms/record_forms.hpp"
#include "workspace/screening.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <charconv>

namespace quillmere::screen {
namespace {

constexpr const char* outcomesId = "outcomes";
constexpr const char* startId = "start";
constexpr const char* cyclesId = "cycles";

struct DurationField {
    const char* id;
    double Block::*member;
    const char* question;
};

constexpr auto durationFields = std::to_array<DurationField>({
    {"focus", &Block::focusDurationSeconds, "How long is a focus session?"},
    {"break", &Block::breakDurationSeconds, "How long is a break?"},
});

Block blockInHand(const QuillmereState& state, Instant now)
{
    return state.currentBlock ? *state.currentBlock : Block::default_(now);
}

/// "1h 30m" as one word, as it can be typed.
std::string durationAsTyped(double seconds)
{
    std::string text;
    for (const char character : base::durationText(seconds)) {
        // Of the units' names the first letter is enough.
        const bool isUnit = character >= 'a' && !text.empty() && text.back() >= 'a';
        text += character == ' ' || isUnit ? std::string() : std::string(1, character);
    }
    return text;
}

std::string startAsTyped(const Block& block)
{
    return block.plannedStart ? base::localText(*block.plannedStart) : std::string();
}

void addLine(Form& form, const char* id, const char* question, std::string text, const char* hint = "")
{
    form.add(std::make_unique<TextField>(id, question, std::move(text), TextField::Lines::one, hint));
}

double durationFrom(const Form& form, const DurationField& field, double before)
{
    const std::string text = form.text(field.id);
    if (text == durationAsTyped(before)) {
        return before;
    }
    const std::optional<double> seconds = base::durationFromText(text);
    if (!seconds) {
        throw Unacceptable(field.id, "A duration lasts from 1 second to 366 days, such as 25m or 1h30m.");
    }
    return *seconds;
}

std::int64_t cyclesFrom(const Form& form)
{
    const std::string text = form.text(cyclesId);
    std::int64_t cycles = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), cycles);
    if (error != std::errc() || end != text.data() + text.size() || cycles > workspace::mostCycles) {
        throw Unacceptable(cyclesId, "The number of sessions is a whole number up to 1000.");
    }
    return cycles;
}

std::optional<Instant> startFrom(const Form& form, const Block& before, Instant now)
{
    const std::string text = form.text(startId);
    if (text.empty()) {
        return std::nullopt;
    }
    const std::optional<Instant> start =
        text == startAsTyped(before) ? before.plannedStart : base::instantFromLocalText(text, now);
    if (!start) {
        throw Unacceptable(startId, "A time to begin looks like 14:30, 2026-11-15 09:00 or +1h.");
    }
    if (*start < now) {
        throw Unacceptable(startId, "This time has passed; name one to come, or none to begin now.");
    }
    return start;
}

std::vector<Outcome> outcomesFrom(const Form& form)
{
    std::vector<Outcome> outcomes;
    for (const nlohmann::json& item : form.field(outcomesId).value()) {
        const std::optional<Identifier> id = Identifier::fromText(item["key"].get<std::string>());
        outcomes.push_back({.id = id ? *id : Identifier::random(), .title = item["text"]});
    }
    // One that nobody wrote is none, but for the only one: a block may go untitled.
    std::erase_if(outcomes, [&](const Outcome& outcome) { return outcome.title.empty(); });
    if (outcomes.empty()) {
        outcomes.push_back({.id = Identifier::random(), .title = {}});
    }
    return outcomes;
}

}  // namespace

bool hasPlannedStart(const Form& form) { return !form.text(startId).empty(); }

void addBlockFields(Form& form, const QuillmereState& state, Instant now)
{
    const Block block = blockInHand(state, now);
    std::vector<ListField::Item> outcomes;
    for (const Outcome& outcome : block.outcomes) {
        // A new block's have no identity that would be the same the next time.
        outcomes.push_back({state.currentBlock ? outcome.id.text() : "", TextEditor(outcome.title)});
    }
    form.add(std::make_unique<ListField>(outcomesId, "What should come out of it?", std::move(outcomes)));
    addTexts(form, "", work::blockFields, block);
    form.addHeading("Its time");
    for (const DurationField& field : durationFields) {
        addLine(form, field.id, field.question, durationAsTyped(block.*field.member));
    }
    addLine(form, cyclesId, "How many focus sessions?", std::to_string(block.cycleCount));
    addLine(form, startId, "When does it begin?", startAsTyped(block), "now (or 14:30, +1h)");
}

void saveBlock(const Form& form, QuillmereState& state, Instant now)
{
    Block block = blockInHand(state, now);
    block.outcomes = outcomesFrom(form);
    applyTexts(form, "", work::blockFields, block);
    for (const DurationField& field : durationFields) {
        block.*field.member = durationFrom(form, field, block.*field.member);
    }
    block.cycleCount = cyclesFrom(form);
    block.plannedStart = startFrom(form, block, now);
    const WorkflowEngine engine;
    if (block.plannedStart) {
        engine.scheduleBlock(state, std::move(block), now);
    } else {
        engine.startBlock(state, std::move(block), now);
    }
}

}  // namespace quillmere::screen
