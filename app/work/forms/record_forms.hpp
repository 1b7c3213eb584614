// One form for each record, used by forms.cpp.
#pragma once

#include "amendments/block_texts.hpp"
#include "base/text/local_time.hpp"
#include "config/values.hpp"
#include "work/fields/answers.hpp"
#include "work/forms/form.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <span>
#include <string>
#include <type_traits>

namespace quillmere::work {

// clang-format off
void addBlockFields      (Form& form, const QuillmereState& state, Instant now, const config::Values& values);
void addPlanFields       (Form& form, const QuillmereState& state, Instant now);
void addReviewFields     (Form& form, const QuillmereState& state, Instant now);
void addReflectionFields (Form& form, const QuillmereState& state, Instant now);
void addAnswerFields     (Form& form, const QuillmereState& state, Instant now);
void addQuestionFields   (Form& form, const QuillmereState& state, Instant now);
void addLengthFields     (Form& form, const QuillmereState& state, Instant now);
void addGoOnFields       (Form& form, const QuillmereState& state, Instant now);
void addEarlierEndFields (Form& form, const QuillmereState& state, Instant now);
void addAwayFields       (Form& form, const QuillmereState& state, Instant now);
void addBlockChangeFields(Form& form, const QuillmereState& state, Instant now);
void addCorrectionFields (Form& form, const QuillmereState& state, Instant now);
void addAnotherStartFields(Form& form, const QuillmereState& state, Instant now);
void addBlockCorrectionFields(Form& form, const QuillmereState& state, Instant now);

// Each reads its form and runs the engine, or an amendment.
void saveBlock      (const Form& form, QuillmereState& state, Instant now);
void savePlan       (const Form& form, QuillmereState& state, Instant now);
void saveReview     (const Form& form, QuillmereState& state, Instant now);
void saveReflection (const Form& form, QuillmereState& state, Instant now);
void saveAnswer     (const Form& form, QuillmereState& state, Instant now);
void saveQuestion   (const Form& form, QuillmereState& state, Instant now);
void saveLength     (const Form& form, QuillmereState& state, Instant now);
void saveGoOn       (const Form& form, QuillmereState& state, Instant now);
void saveEarlierEnd (const Form& form, QuillmereState& state, Instant now);
void saveAway       (const Form& form, QuillmereState& state, Instant now);
void saveBlockChange(const Form& form, QuillmereState& state, Instant now);
void saveCorrection (const Form& form, QuillmereState& state, Instant now);
void saveAnotherStart(const Form& form, QuillmereState& state, Instant now);
void saveBlockCorrection(const Form& form, QuillmereState& state, Instant now);

// Each says in full how the times in its form are understood; empty when there is none.
std::string blockTimes       (const Form& form, const QuillmereState& state, const base::SeenFrom& here);
std::string earlierEndTimes  (const Form& form, const QuillmereState& state, const base::SeenFrom& here);
std::string awayTimes        (const Form& form, const QuillmereState& state, const base::SeenFrom& here);
std::string correctionTimes  (const Form& form, const QuillmereState& state, const base::SeenFrom& here);
std::string anotherStartTimes(const Form& form, const QuillmereState& state, const base::SeenFrom& here);
// clang-format on

/// Whether the session or block that a correction is of exists, and can be corrected.
bool hasRecordToCorrect(const FormSubject& subject, const QuillmereState& state);

/// The texts and outcomes of a block that are others afterwards.
amendments::BlockTexts textsBetween(const Block& before, const Block& after);

/// Whether a block form names a time to begin at.
bool hasPlannedStart(const Form& form);

/// Whether a review form says that the block ends with this session.
bool finishesBlock(const Form& form);

/// The fields of a review. Without one nothing is chosen for the person.
void addReview(Form& form, const std::optional<SessionReview>& review);
SessionReview reviewFrom(const Form& form, const std::optional<SessionReview>& review, Instant now);

/// The fields of a reflection.
void addReflection(Form& form, const BlockReview& reflection);
BlockReview reflectionFrom(const Form& form, BlockReview reflection, Instant now);

/// The fields of a session plan; `prefix` stands before their ids.
void addPlan(Form& form, const std::string& prefix, const SessionPlan& plan,
             const std::optional<Block>& block);
SessionPlan planFrom(const Form& form, const std::string& prefix, SessionPlan plan, Instant now);

/// A field with its prompt, and without options.
Field fieldOf(const Prompt& prompt, const std::string& prefix, FieldValue value);

/// The field of a record's row, for a form that shows times so.
template <class Record>
Field fieldOf(const RecordField<Record>& row, const std::string& prefix, const Record& record,
              base::Hours hours)
{
    return fieldOf(row.prompt, prefix, valueIn(record, row, hours));
}

/// Sets the fields of a record that are in the form and were changed there. An unchanged field keeps its
/// value exactly, although the form shows it rounded.
template <class Record>
void applyFields(const Form& form, const std::string& prefix,
                 std::span<const std::type_identity_t<RecordField<Record>>> rows, Record& record, Instant now)
{
    for (const RecordField<Record>& row : rows) {
        const std::string id = prefix + std::string(row.prompt.name);
        const FieldValue& value = form.field(id).value;
        if (value != valueIn(record, row, form.hours())) {
            setFrom(record, row, id, value, now);
        }
    }
}

}  // namespace quillmere::work
