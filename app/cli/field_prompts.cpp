#include "cli/field_prompts.hpp"

#include "work/fields/answers.hpp"
#include "work/fields/earlier_values.hpp"

#include <algorithm>
#include <variant>

namespace quillmere::cli {
namespace {

/// The earlier values, with the present one in front, so that it can be changed a little.
std::vector<std::string> withPresent(std::vector<std::string> earlier, const std::string& present)
{
    std::erase(earlier, present);
    if (!present.empty()) {
        earlier.insert(earlier.begin(), present);
    }
    return earlier;
}

}  // namespace

template <class Record>
std::optional<std::string> askForField(const Asking& asking, const work::RecordField<Record>& field,
                                       const Record& present, const Require& alsoRequire)
{
    const bool isCompletion = std::holds_alternative<CompletionResult Record::*>(field.member);
    const std::string value =
        isCompletion ? std::string() : std::get<std::string>(work::valueIn(present, field));
    const Question question{
        .text = work::promptText(field.prompt),
        .present = value,
        .earlier = withPresent(work::earlierValues(asking.state, field), value),
        .takesLines = field.prompt.kind == work::FieldKind::text,
        .canBeCleared = std::holds_alternative<std::string Record::*>(field.member),
    };
    return askToChange(asking.environment, question, [&](const std::string& answer) {
        work::requireUsable(present, field, answer, asking.here.now);
        if (alsoRequire) {
            alsoRequire(answer);
        }
    });
}

template std::optional<std::string> askForField(const Asking&, const work::RecordField<Block>&, const Block&,
                                                const Require&);
template std::optional<std::string> askForField(const Asking&, const work::RecordField<SessionPlan>&,
                                                const SessionPlan&, const Require&);
template std::optional<std::string> askForField(const Asking&, const work::RecordField<SessionReview>&,
                                                const SessionReview&, const Require&);
template std::optional<std::string> askForField(const Asking&, const work::RecordField<BlockReview>&,
                                                const BlockReview&, const Require&);

}  // namespace quillmere::cli
