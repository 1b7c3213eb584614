#include "cli/text_options.hpp"

#include "base/text/sanitize.hpp"
#include "cli/exit_code.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"

#include <algorithm>
#include <utility>
#include <variant>

namespace quillmere::cli {
namespace {

/// The number of an outcome stands for its identifier, so it is read as a number.
template <class Record>
bool isNumber(const work::RecordField<Record>& field)
{
    return std::holds_alternative<std::int64_t Record::*>(field.member) ||
           std::holds_alternative<std::optional<Identifier> Record::*>(field.member);
}

}  // namespace

CLI::Validator wellFormedText()
{
    return {[](std::string& text) { return base::isText(text) ? "" : "is not well-formed UTF-8"; }, ""};
}

CLI::Validator wholeNumber(const work::Limits& limits)
{
    return {[limits](std::string& text) -> std::string {
                try {
                    text = std::to_string(work::numberFrom({{}, text}, limits));
                    return "";
                } catch (const work::Unacceptable& refusal) {
                    return refusal.what();
                }
            },
            ""};
}

template <class Record>
RecordOptions<Record>::RecordOptions(std::span<const work::RecordField<Record>> fields)
    : fields_(fields), given_(fields.size())
{
}

template <class Record>
void RecordOptions<Record>::addTo(CLI::App& command, const std::string& prefix)
{
    prefix_ = prefix;
    for (std::size_t index = 0; index < fields_.size(); ++index) {
        addOption(command, index);
    }
}

template <class Record>
void RecordOptions<Record>::addOption(CLI::App& command, std::size_t index)
{
    const work::RecordField<Record>& field = fields_[index];
    const std::string name = "--" + prefix_ + std::string(field.prompt.name);
    const std::string help = work::helpText(field.prompt);
    Given& given = given_[index];
    if (field.prompt.kind == work::FieldKind::list) {
        given.option = command.add_option(name, given.items, help);
        given.option->allow_extra_args(false)->check(wellFormedText());
        return;
    }
    CLI::Option* const option = given.option = command.add_option(name, given.text, help);
    if (isNumber(field)) {
        option->type_name("INT")->transform(wholeNumber(field.prompt.limits));
    } else {
        option->check(wellFormedText());
    }
    if (std::holds_alternative<CompletionResult Record::*>(field.member)) {
        option->type_name("{yes,half,no}");
    }
}

template <class Record>
bool RecordOptions<Record>::anyGiven() const
{
    return wasAsked_ || std::any_of(given_.begin(), given_.end(),
                                    [](const Given& given) { return given.text || !given.items.empty(); });
}

template <class Record>
std::size_t RecordOptions<Record>::indexOf(std::string_view name) const
{
    const auto found = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const auto& field) { return field.prompt.name == name; });
    if (found == fields_.end()) {
        fatalError("quillmere: a command uses an option that no table has");
    }
    return static_cast<std::size_t>(found - fields_.begin());
}

template <class Record>
const std::optional<std::string>& RecordOptions<Record>::given(std::string_view name) const
{
    return given_[indexOf(name)].text;
}

template <class Record>
std::vector<std::string>& RecordOptions<Record>::items(std::string_view name)
{
    return given_[indexOf(name)].items;
}

template <class Record>
void RecordOptions<Record>::give(std::string_view name, std::optional<std::string> text)
{
    given_[indexOf(name)].text = std::move(text);
}

template <class Record>
void RecordOptions<Record>::applyTo(Record& record, Instant now) const
{
    for (std::size_t index = 0; index < fields_.size(); ++index) {
        const work::RecordField<Record>& field = fields_[index];
        const Given& given = given_[index];
        const std::string name = prefix_ + std::string(field.prompt.name);
        if (!given.items.empty()) {
            std::vector<work::ListItem> items;
            for (const std::string& item : given.items) {
                items.push_back({.key = {}, .text = item});
            }
            work::setFrom(record, field, name, items, now);
        } else if (given.text && !std::holds_alternative<std::optional<Identifier> Record::*>(field.member)) {
            work::setFrom(record, field, name, *given.text, now);
        }
    }
}

template <class Record>
void RecordOptions<Record>::askForMissing(const Ask<Record>& ask)
{
    for (std::size_t index = 0; index < fields_.size(); ++index) {
        if (fields_[index].prompt.kind != work::FieldKind::list && !given_[index].text) {
            given_[index].text = ask(fields_[index]);
        }
    }
    wasAsked_ = true;
}

template class RecordOptions<Block>;
template class RecordOptions<SessionPlan>;
template class RecordOptions<SessionReview>;
template class RecordOptions<BlockReview>;

}  // namespace quillmere::cli
