// The forms that correct a session that has ended, and a finished block.
#include "amendments/correct.hpp"
#include "work/done_text.hpp"
#include "work/forms/forms.hpp"
#include "work/forms/record_forms.hpp"
#include "work/naming.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace quillmere::work {
namespace {

constexpr const char* planPrefix = "plan-";

/// A session and the block that it is of.
struct SessionOfBlock {
    const Block* block;
    const WorkSession* session;
};

std::optional<SessionOfBlock> sessionIn(const Block& block, const std::string& id)
{
    for (const WorkSession& session : block.sessions) {
        if (session.id.text() == id) {
            return SessionOfBlock{&block, &session};
        }
    }
    return std::nullopt;
}

/// The session with this identifier, if it can be corrected: it has ended and does not wait for its review.
std::optional<SessionOfBlock> sessionToCorrect(const std::string& id, const QuillmereState& state)
{
    std::optional<SessionOfBlock> found;
    if (state.currentBlock) {
        found = sessionIn(*state.currentBlock, id);
    }
    for (auto block = state.blockHistory.begin(); !found && block != state.blockHistory.end(); ++block) {
        found = sessionIn(*block, id);
    }
    const bool isLast = found && found->session == state.currentSession();
    const bool isCorrectable = found && found->session->endedAt && (!isLast || reviewedSession(state));
    return isCorrectable ? found : std::nullopt;
}

/// The finished block of the form; null: none.
const Block* blockToCorrect(const FormSubject& subject, const QuillmereState& state)
{
    const std::optional<Identifier> id = Identifier::fromText(subject.name);
    return id ? finishedBlockWith(*id, state) : nullptr;
}

/// The texts of a finished block. Its lengths are a record of how it went.
constexpr auto correctedFields = begunBlockFields.first<begunBlockFields.size() - 3>();
static_assert(correctedFields.back().member == Member<Block>(&Block::contextNotes));

bool isChanged(const Form& form, const Prompt& prompt)
{
    const Field& field = form.field(prompt.name);
    return field.value != field.beginning;
}

template <class Record>
bool isAnyChanged(const Form& form, std::span<const RecordField<Record>> rows)
{
    return std::any_of(rows.begin(), rows.end(),
                       [&](const auto& row) { return isChanged(form, row.prompt); });
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

bool hasRecordToCorrect(const FormSubject& subject, const QuillmereState& state)
{
    return subject.kind == FormKind::correction ? sessionToCorrect(subject.name, state).has_value()
                                                : blockToCorrect(subject, state) != nullptr;
}

void addCorrectionFields(Form& form, const QuillmereState& state, Instant)
{
    const SessionOfBlock corrected = *sessionToCorrect(form.subject().name, state);
    addReview(form, corrected.session->review);
    form.add(fieldOf(endedAtPrompt, "", std::string()));
    form.addHeading("Its plan");
    addPlan(form, planPrefix, corrected.session->plan, *corrected.block);
}

void saveCorrection(const Form& form, QuillmereState& state, Instant now)
{
    const SessionOfBlock corrected = *sessionToCorrect(form.subject().name, state);
    const WorkSession& session = *corrected.session;
    amendments::SessionCorrection correction;
    if (SessionPlan plan = planFrom(form, planPrefix, session.plan, now); plan != session.plan) {
        correction.plan = std::move(plan);
    }
    if (isAnyChanged<SessionReview>(form, reviewFields)) {
        correction.review = reviewFrom(form, session.review, now);
    }
    correction.endedAt = earlierEnd(form, session);
    const Identifier block = corrected.block->id;
    const Identifier id = session.id;
    amendments::correctSession(state, block, id, std::move(correction), now);
}

std::string correctionTimes(const Form& form, const QuillmereState& state, const base::SeenFrom& here)
{
    const std::optional<SessionOfBlock> corrected = sessionToCorrect(form.subject().name, state);
    const std::optional<Instant> end = corrected ? earlierEnd(form, *corrected->session) : std::nullopt;
    return end ? std::string(done::recordCorrected) + " " + done::endedOn(*end, here.hours) : "";
}

void addBlockCorrectionFields(Form& form, const QuillmereState& state, Instant)
{
    const Block& block = *blockToCorrect(form.subject(), state);
    addReflection(form, block.reflection.value_or(BlockReview{}));
    form.addHeading("Its plan");
    for (const RecordField<Block>& row : correctedFields) {
        form.add(fieldOf(row, "", block, form.hours()));
    }
}

void saveBlockCorrection(const Form& form, QuillmereState& state, Instant now)
{
    const Block& block = *blockToCorrect(form.subject(), state);
    Block corrected = block;
    applyFields(form, "", correctedFields, corrected, now);
    amendments::BlockCorrection correction{.texts = textsBetween(block, corrected)};
    if (isAnyChanged<BlockReview>(form, reflectionFields)) {
        correction.reflection = reflectionFrom(form, block.reflection.value_or(BlockReview{}), now);
    }
    amendments::correctBlock(state, corrected.id, std::move(correction), now);
}

}  // namespace quillmere::work
