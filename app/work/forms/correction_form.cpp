// The form that corrects the last session of the current block.
#include "amendments/correct.hpp"
#include "work/done_text.hpp"
#include "work/forms/record_forms.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace quillmere::work {
namespace {

constexpr const char* planPrefix = "plan-";

bool isReviewChanged(const Form& form)
{
    return std::any_of(reviewFields.begin(), reviewFields.end(), [&](const RecordField<SessionReview>& row) {
        const Field& field = form.field(row.prompt.name);
        return field.value != field.beginning;
    });
}

std::optional<Instant> earlierEnd(const Form& form, const WorkSession& session)
{
    const std::string id(endedAtPrompt.name);
    const std::string& text = form.text(id);
    // "14:20" is a time on the day of the session.
    return text.empty() ? std::nullopt : std::optional(pastTimeFrom({id, text}, *session.endedAt));
}

}  // namespace

const WorkSession* reviewedSession(const QuillmereState& state)
{
    const bool isInWork =
        state.workflowState == WorkflowState::focusing || state.workflowState == WorkflowState::sessionReview;
    const WorkSession* const session = state.currentSession();
    return session && session->endedAt && !isInWork ? session : nullptr;
}

void addCorrectionFields(Form& form, const QuillmereState& state, Instant)
{
    const WorkSession& session = *reviewedSession(state);
    addReview(form, session.review);
    form.add(fieldOf(endedAtPrompt, "", std::string()));
    form.addHeading("Its plan");
    addPlan(form, planPrefix, session.plan, state.currentBlock);
}

void saveCorrection(const Form& form, QuillmereState& state, Instant now)
{
    const WorkSession& session = *reviewedSession(state);
    amendments::SessionCorrection correction;
    if (SessionPlan plan = planFrom(form, planPrefix, session.plan, now); plan != session.plan) {
        correction.plan = std::move(plan);
    }
    if (isReviewChanged(form)) {
        correction.review = reviewFrom(form, session.review, now);
    }
    correction.endedAt = earlierEnd(form, session);
    const Identifier block = state.currentBlock->id;
    const Identifier corrected = session.id;
    amendments::correctSession(state, block, corrected, std::move(correction), now);
}

std::string correctionTimes(const Form& form, const QuillmereState& state, const base::SeenFrom& here)
{
    const WorkSession* const session = reviewedSession(state);
    const std::optional<Instant> end = session ? earlierEnd(form, *session) : std::nullopt;
    return end ? std::string(done::recordCorrected) + " " + done::endedOn(*end, here.hours) : "";
}

}  // namespace quillmere::work
