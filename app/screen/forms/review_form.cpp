// The review of a focus session with the plan of the next one, and the reflection on a block.
#include "screen/fields/choice_field.hpp"
#include "screen/forms/record_forms.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::screen {
namespace {

constexpr const char* completionId = "completion";
constexpr const char* nextPrefix = "next-";

std::vector<Option> completions()
{
    std::vector<Option> options;
    for (const CompletionResult result : allCases<CompletionResult>()) {
        options.push_back({std::string(rawValue(result)), std::string(rawValue(result))});
    }
    return options;
}

SessionReview emptyReview()
{
    return {.id = Identifier::random(),
            .completion = CompletionResult::no,
            .noteworthyResult = {},
            .distractions = {},
            .improvement = {}};
}

/// The titles of a block's outcomes in one line.
std::string titlesOf(const std::optional<Block>& block)
{
    std::string titles;
    for (const Outcome& outcome : block ? block->outcomes : std::vector<Outcome>()) {
        titles += (titles.empty() || outcome.title.empty() ? "" : " · ") + outcome.title;
    }
    return titles;
}

}  // namespace

void addReviewFields(Form& form, const QuillmereState& state, Instant)
{
    if (const WorkSession* const session = state.currentSession()) {
        form.setReminder(session->plan.intendedOutcome);
    }
    form.add(std::make_unique<ChoiceField>(completionId, "Was it completed?", completions(), ""));
    addTexts(form, "", work::reviewFields, emptyReview());
    if (isPossible(Step::saveReviewAndStartBreak, state)) {
        form.addHeading("The next session");
        addPlan(form, nextPrefix, SessionPlan::blank(Identifier::random()), state.currentBlock);
    }
}

void saveReview(const Form& form, QuillmereState& state, Instant now)
{
    const auto completion = fromRawValue<CompletionResult>(form.text(completionId));
    if (!completion) {
        throw Unacceptable(completionId, "Say whether it was completed: yes, half or no.");
    }
    SessionReview review = emptyReview();
    review.completion = *completion;
    applyTexts(form, "", work::reviewFields, review);
    std::optional<SessionPlan> next;
    if (form.has(nextPrefix + std::string(work::planFields.front().option))) {
        next = planFrom(form, nextPrefix, SessionPlan::blank(Identifier::random()));
    }
    WorkflowEngine().saveReviewAndStartBreak(state, std::move(review), std::move(next), now);
}

void addReflectionFields(Form& form, const QuillmereState& state, Instant)
{
    form.setReminder(titlesOf(state.currentBlock));
    addTexts(form, "", work::reflectionFields, BlockReview{});
}

void saveReflection(const Form& form, QuillmereState& state, Instant now)
{
    BlockReview reflection{};
    applyTexts(form, "", work::reflectionFields, reflection);
    WorkflowEngine().completeBlockReview(state, std::move(reflection), now);
}

}  // namespace quillmere::screen
