// One form a record; for forms.cpp, which knows when each is wanted.
#pragma once

#include "screen/fields/text_field.hpp"
#include "screen/form.hpp"
#include "work/fields.hpp"

namespace quillmere::screen {

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

/// The fields of a session plan, their names behind `prefix`.
void addPlan(Form& form, const std::string& prefix, const SessionPlan& plan,
             const std::optional<Block>& block);
SessionPlan planFrom(const Form& form, const std::string& prefix, SessionPlan plan);

/// Whether a text is written in one line.
bool isOneLine(std::string_view option);

/// The fields of a record's texts.
template <class Record, std::size_t count>
void addTexts(Form& form, const std::string& prefix,
              const std::array<work::RecordText<Record>, count>& fields, const Record& record)
{
    for (const auto& field : fields) {
        const auto lines = isOneLine(field.option) ? TextField::Lines::one : TextField::Lines::several;
        form.add(
            std::make_unique<TextField>(prefix + field.option, field.question, record.*field.member, lines));
    }
}

/// Sets a record's texts to what has been filled in.
template <class Record, std::size_t count>
void applyTexts(const Form& form, const std::string& prefix,
                const std::array<work::RecordText<Record>, count>& fields, Record& record)
{
    for (const auto& field : fields) {
        record.*field.member = form.text(prefix + field.option);
    }
}

}  // namespace quillmere::screen
