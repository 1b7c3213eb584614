// The form of a review, with the plan of the next session or, for the only one, with the reflection; and the
// form of the reflection on a block.
#include "amendments/finish_now.hpp"
#include "work/forms/record_forms.hpp"
#include "work/only_session.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <utility>

namespace quillmere::work {
namespace {

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

/// The choice of what comes after the session.
constexpr const char* afterId = "after";
constexpr const char* finishKey = "finish";

Field afterField()
{
    return {.id = afterId,
            .question = "What comes after it?",
            .kind = FieldKind::choice,
            .value = std::string("break"),
            .options = {{"break", "the next session"}, {finishKey, "the end of the block"}},
            .areOptionsLong = true};
}

/// The titles of the outcomes in one line.
std::string titlesOf(const std::optional<Block>& block)
{
    std::string titles;
    for (const Outcome& outcome : block ? block->outcomes : std::vector<Outcome>()) {
        titles += (titles.empty() || outcome.title.empty() ? "" : " · ") + outcome.title;
    }
    return titles;
}

}  // namespace

void addReflection(Form& form, const BlockReview& reflection)
{
    for (const RecordField<BlockReview>& row : reflectionFields) {
        form.add(fieldOf(row, "", reflection, form.hours()));
    }
}

BlockReview reflectionFrom(const Form& form, BlockReview reflection, Instant now)
{
    applyFields(form, "", reflectionFields, reflection, now);
    return reflection;
}

bool finishesBlock(const Form& form) { return form.has(afterId) && form.text(afterId) == finishKey; }

void addReview(Form& form, const std::optional<SessionReview>& review)
{
    for (const RecordField<SessionReview>& row : reviewFields) {
        Field field = fieldOf(row, "", review.value_or(emptyReview()), form.hours());
        if (row.prompt.kind == FieldKind::choice) {
            field.value = review ? field.value : std::string();
            field.options = completions();
        }
        form.add(std::move(field));
    }
}

SessionReview reviewFrom(const Form& form, const std::optional<SessionReview>& review, Instant now)
{
    SessionReview filled = review.value_or(emptyReview());
    applyFields(form, "", reviewFields, filled, now);
    return filled;
}

void addReviewFields(Form& form, const QuillmereState& state, Instant)
{
    if (const WorkSession* const session = state.currentSession()) {
        form.setReminder(session->plan.intendedOutcome);
    }
    addReview(form, std::nullopt);
    if (isPossible(Step::saveReviewAndStartBreak, state)) {
        form.addHeading("The next session");
        form.add(afterField());
        addPlan(form, nextPrefix, SessionPlan::blank(Identifier::random()), state.currentBlock);
    } else if (isOnlySessionInReview(state)) {
        form.addHeading("The block");
        addReflection(form, {});
    }
}

void saveReview(const Form& form, QuillmereState& state, Instant now)
{
    SessionReview review = reviewFrom(form, std::nullopt, now);
    if (form.has(reflectionFields.front().prompt.name)) {
        finishOnlySession(state, std::move(review), reflectionFrom(form, {}, now), now);
        return;
    }
    if (finishesBlock(form)) {
        amendments::finishNow(state, std::move(review), now);
        return;
    }
    std::optional<SessionPlan> next;
    if (form.has(nextPrefix + std::string(planFields.front().prompt.name))) {
        next = planFrom(form, nextPrefix, SessionPlan::blank(Identifier::random()), now);
    }
    WorkflowEngine().saveReviewAndStartBreak(state, std::move(review), std::move(next), now);
}

void addReflectionFields(Form& form, const QuillmereState& state, Instant)
{
    form.setReminder(titlesOf(state.currentBlock));
    addReflection(form, {});
}

void saveReflection(const Form& form, QuillmereState& state, Instant now)
{
    WorkflowEngine().completeBlockReview(state, reflectionFrom(form, {}, now), now);
}

}  // namespace quillmere::work
