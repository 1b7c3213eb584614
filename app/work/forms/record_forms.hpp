// One form for each record, used by forms.cpp.
#pragma once

#include "work/fields/answers.hpp"
#include "work/forms/form.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <array>
#include <string>

namespace quillmere::work {

// clang-format off
void addBlockFields      (Form& form, const QuillmereState& state, Instant now);
void addPlanFields       (Form& form, const QuillmereState& state, Instant now);
void addReviewFields     (Form& form, const QuillmereState& state, Instant now);
void addReflectionFields (Form& form, const QuillmereState& state, Instant now);
void addAnswerFields     (Form& form, const QuillmereState& state, Instant now);
void addQuestionFields   (Form& form, const QuillmereState& state, Instant now);

// Each reads its form and runs the engine.
void saveBlock      (const Form& form, QuillmereState& state, Instant now);
void savePlan       (const Form& form, QuillmereState& state, Instant now);
void saveReview     (const Form& form, QuillmereState& state, Instant now);
void saveReflection (const Form& form, QuillmereState& state, Instant now);
void saveAnswer     (const Form& form, QuillmereState& state, Instant now);
void saveQuestion   (const Form& form, QuillmereState& state, Instant now);
// clang-format on

/// Whether a block form names a time to begin at.
bool hasPlannedStart(const Form& form);

/// The fields of a session plan; `prefix` stands before their ids.
void addPlan(Form& form, const std::string& prefix, const SessionPlan& plan,
             const std::optional<Block>& block);
SessionPlan planFrom(const Form& form, const std::string& prefix, SessionPlan plan, Instant now);

/// A field with its prompt, and without options.
Field fieldOf(const Prompt& prompt, const std::string& prefix, FieldValue value);

/// The field of a record's row.
template <class Record>
Field fieldOf(const RecordField<Record>& row, const std::string& prefix, const Record& record)
{
    return fieldOf(row.prompt, prefix, valueIn(record, row));
}

/// Sets the fields of a record that are in the form and were changed there. An unchanged field keeps its
/// value exactly, although the form shows it rounded.
template <class Record, std::size_t count>
void applyFields(const Form& form, const std::string& prefix,
                 const std::array<RecordField<Record>, count>& rows, Record& record, Instant now)
{
    for (const RecordField<Record>& row : rows) {
        const std::string id = prefix + std::string(row.prompt.name);
        const FieldValue& value = form.field(id).value;
        if (value != valueIn(record, row)) {
            setFrom(record, row, id, value, now);
        }
    }
}

}  // namespace quillmere::work
