// The forms of all records: how each comes out of a state, and what its values do to one.
#pragma once

#include "screen/form.hpp"

#include <quillmere/engine/transition.hpp>

#include <optional>
#include <vector>

namespace quillmere::screen {

/// What the person has to fill in at this place of the workflow; nothing where there is nothing.
std::optional<FormSubject> subjectFor(const QuillmereState& state);

/// What an answer to a question, or a new question, is kept as.
FormSubject answerTo(const AgentQuestion& question);
FormSubject newQuestion();

/// All subjects that a form may still be opened on in a state.
std::vector<FormSubject> subjectsOf(const QuillmereState& state);

/// A form filled in as far as the state can tell.
Form formFor(const FormSubject& subject, const QuillmereState& state, Instant now);

/// What saving the form would do.
Step stepOf(const Form& form, const QuillmereState& state);

/// Does it. Throws WorkflowError when the form belongs to something else than the state is about, or when the
/// engine refuses, and Unacceptable when a value cannot be meant.
void carryOut(const Form& form, QuillmereState& state, Instant now);

}  // namespace quillmere::screen
