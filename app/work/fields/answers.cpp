#include "work/fields/answers.hpp"

#include "base/text/blank.hpp"
#include "base/text/lower_case.hpp"
#include "base/text/quotes.hpp"
#include "base/text/typed_time.hpp"
#include "work/fields/unacceptable.hpp"

#include <charconv>

namespace quillmere::work {
namespace {

// One overload for each type of member.

FieldValue valueOf(const std::string& text, base::Hours) { return text; }
FieldValue valueOf(double seconds, base::Hours) { return base::durationAsTyped(seconds); }
FieldValue valueOf(std::int64_t number, base::Hours) { return std::to_string(number); }
FieldValue valueOf(CompletionResult result, base::Hours) { return std::string(rawValue(result)); }
FieldValue valueOf(const std::optional<Instant>& start, base::Hours hours)
{
    return start ? base::localText(*start, hours) : std::string();
}
FieldValue valueOf(const std::optional<Identifier>& id, base::Hours)
{
    return id ? id->text() : std::string();
}
FieldValue valueOf(const std::vector<Outcome>& outcomes, base::Hours)
{
    std::vector<ListItem> items;
    for (const Outcome& outcome : outcomes) {
        items.push_back({outcome.id.text(), outcome.title});
    }
    return items;
}

Unacceptable noNumber(const Answer& answer, const Limits& limits)
{
    const std::string range =
        limits.most == 0 ? ""
                         : " from " + std::to_string(limits.least) + " to " + std::to_string(limits.most);
    return {answer.field, base::inQuotes(answer.text) + " is no whole number" + range + "."};
}

/// An answer, and the values that its reading depends on.
struct Reading {
    Answer answer;
    const Prompt& prompt;
    Instant now;
};

void set(std::string& member, const Reading& reading) { member = reading.answer.text; }
void set(double& member, const Reading& reading) { member = durationFrom(reading.answer); }
void set(std::int64_t& member, const Reading& reading)
{
    const bool isNothingChosen = reading.prompt.kind == FieldKind::choice && reading.answer.text.empty();
    member = isNothingChosen ? member : numberFrom(reading.answer, reading.prompt.limits);
}
void set(CompletionResult& member, const Reading& reading) { member = completionFrom(reading.answer); }
void set(std::optional<Instant>& member, const Reading& reading)
{
    member =
        reading.answer.text.empty() ? std::nullopt : std::optional(startFrom(reading.answer, reading.now));
}
void set(std::optional<Identifier>& member, const Reading& reading)
{
    member = Identifier::fromText(reading.answer.text);
}
/// A list is not set from a text; setFrom handles it.
void set(std::vector<Outcome>&, const Reading&) {}

[[noreturn]] void refuseTime(const Answer& answer, std::string_view examples)
{
    const std::string start =
        answer.text.empty() ? "Give a local time" : base::inQuotes(answer.text) + " is no local time";
    throw Unacceptable(answer.field, start + ", such as " + std::string(examples) + ".");
}

}  // namespace

double durationFrom(const Answer& answer)
{
    const std::optional<double> seconds = base::durationFromText(answer.text);
    if (!seconds) {
        throw Unacceptable(
            answer.field,
            base::inQuotes(answer.text).append(" is no ").append(base::acceptedDurations).append("."));
    }
    return *seconds;
}

std::int64_t numberFrom(const Answer& answer, const Limits& limits)
{
    std::int64_t number = 0;
    const char* const end = answer.text.data() + answer.text.size();
    const auto [stop, error] = std::from_chars(answer.text.data(), end, number);
    const bool isTooMany = limits.engineAcceptsMore && number > limits.most;
    if (error != std::errc() || stop != end || isTooMany) {
        throw noNumber(answer, limits);
    }
    return number;
}

CompletionResult completionFrom(const Answer& answer)
{
    const std::string said = base::lowerCase(answer.text);
    for (const CompletionResult result : allCases<CompletionResult>()) {
        const std::string word = base::lowerCase(rawValue(result));
        if (said == word || said == word.substr(0, 1)) {
            return result;
        }
    }
    throw Unacceptable(answer.field, "Say whether it was completed: yes, half or no.");
}

Instant startFrom(const Answer& answer, Instant now)
{
    const std::optional<Instant> start = base::instantFromLocalText(answer.text, now);
    if (!start) {
        refuseTime(answer, base::exampleTimes);
    }
    return *start;
}

Instant pastTimeFrom(const Answer& answer, Instant now)
{
    if (const std::optional<Instant> instant = base::pastInstantFromLocalText(answer.text, now)) {
        return *instant;
    }
    refuseTime(answer, base::examplePastTimes);
}

double lengthChangeFrom(const Answer& answer)
{
    const bool isNegative = answer.text.starts_with('-');
    const std::optional<double> seconds = base::durationFromText(answer.text.substr(isNegative ? 1 : 0));
    if (!seconds) {
        throw Unacceptable(answer.field, "Give a " + std::string(base::acceptedDurations) +
                                             ", or a negative one, which makes it shorter: -5m.");
    }
    return isNegative ? -*seconds : *seconds;
}

void requireToCome(const std::string& field, Instant start, const base::SeenFrom& here)
{
    if (start < here.now) {
        throw Unacceptable(field, "The time to begin, " + base::localText(start, here.hours) +
                                      ", has passed; name a later time, or begin now.");
    }
}

bool agreementFrom(const Answer& answer)
{
    const std::string said = base::lowerCase(answer.text);
    const bool agrees = said == "y" || said == "yes";
    if (!agrees && said != "n" && said != "no") {
        throw Unacceptable(answer.field, "Say yes or no.");
    }
    return agrees;
}

void requireQuestion(const std::string& field, std::string_view text)
{
    if (base::isBlank(text)) {
        throw Unacceptable(field, "A question needs a text.");
    }
}

void requireAnswer(const std::string& field, std::string_view text)
{
    if (base::isBlank(text)) {
        throw Unacceptable(field,
                           "An answer needs a text. quillmere answer QUESTION --dismiss closes a question "
                           "without one.");
    }
}

std::vector<Outcome> outcomesFrom(const std::vector<ListItem>& items)
{
    std::vector<Outcome> outcomes;
    for (const ListItem& item : items) {
        if (!item.text.empty()) {
            const std::optional<Identifier> id = Identifier::fromText(item.key);
            outcomes.push_back({.id = id ? *id : Identifier::random(), .title = item.text});
        }
    }
    if (outcomes.empty()) {
        outcomes.push_back({.id = Identifier::random(), .title = {}});
    }
    return outcomes;
}

template <class Record>
FieldValue valueIn(const Record& record, const RecordField<Record>& field, base::Hours hours)
{
    return std::visit([&](const auto member) { return valueOf(record.*member, hours); }, field.member);
}

template <class Record>
void setFrom(Record& record, const RecordField<Record>& field, const std::string& id, const FieldValue& value,
             Instant now)
{
    if (const auto* const list = std::get_if<std::vector<Outcome> Record::*>(&field.member)) {
        record.** list = outcomesFrom(std::get<std::vector<ListItem>>(value));
        return;
    }
    const Answer answer{id, std::get<std::string>(value)};
    std::visit(
        [&](const auto member) {
            set(record.*member, Reading{answer, field.prompt, now});
        },
        field.member);
}

template <class Record>
void requireUsable(const Record& present, const RecordField<Record>& field, const std::string& answer,
                   Instant now)
{
    const std::string id(field.prompt.name);
    Record copy = present;
    setFrom(copy, field, id, answer, now);
    const auto* const number = std::get_if<std::int64_t Record::*>(&field.member);
    const Limits& limits = field.prompt.limits;
    if (number && (copy.**number < limits.least || copy.**number > limits.most)) {
        throw noNumber({id, answer}, limits);
    }
}

template FieldValue valueIn(const Block&, const RecordField<Block>&, base::Hours);
template FieldValue valueIn(const SessionPlan&, const RecordField<SessionPlan>&, base::Hours);
template FieldValue valueIn(const SessionReview&, const RecordField<SessionReview>&, base::Hours);
template FieldValue valueIn(const BlockReview&, const RecordField<BlockReview>&, base::Hours);

template void setFrom(Block&, const RecordField<Block>&, const std::string&, const FieldValue&, Instant);
template void setFrom(SessionPlan&, const RecordField<SessionPlan>&, const std::string&, const FieldValue&,
                      Instant);
template void setFrom(SessionReview&, const RecordField<SessionReview>&, const std::string&,
                      const FieldValue&, Instant);
template void setFrom(BlockReview&, const RecordField<BlockReview>&, const std::string&, const FieldValue&,
                      Instant);

template void requireUsable(const Block&, const RecordField<Block>&, const std::string&, Instant);
template void requireUsable(const SessionPlan&, const RecordField<SessionPlan>&, const std::string&, Instant);
template void requireUsable(const SessionReview&, const RecordField<SessionReview>&, const std::string&,
                            Instant);
template void requireUsable(const BlockReview&, const RecordField<BlockReview>&, const std::string&, Instant);

}  // namespace quillmere::work
