// The form that corrects the last session of the current block.
#include "amendments/correct.hpp"
#include "work/forms/record_forms.hpp"

#include <algorithm>
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
    const std::string id(endedAtPrompt.name);
    if (const std::string& text = form.text(id); !text.empty()) {
        // "14:20" is a time on the day of the session.
        correction.endedAt = pastTimeFrom({id, text}, *session.endedAt);
    }
    const Identifier block = state.currentBlock->id;
    const Identifier corrected = session.id;
    amendments::correctSession(state, block, corrected, std::move(correction), now);
}

}  // namespace quillmere::work
