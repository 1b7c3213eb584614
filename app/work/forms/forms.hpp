// The forms of all records: which one a state asks for, how it begins, and how it is saved.
#pragma once

#include "base/system/sleep_detector.hpp"
#include "base/text/local_time.hpp"
#include "config/values.hpp"
#include "work/forms/form.hpp"
#include "work/move.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <string>
#include <vector>

namespace quillmere::work {

/// The form that the workflow waits for; absent where it waits for none.
std::optional<FormSubject> subjectFor(const QuillmereState& state);

/// A block that is to be planned next. It has no identifier before it is saved, so it is named by the block
/// before it.
FormSubject newBlock(const QuillmereState& state);
FormSubject answerTo(const AgentQuestion& question);
FormSubject newQuestion();

/// All forms that may be opened in a state, now or after editing the scheduled block.
std::vector<FormSubject> subjectsOf(const QuillmereState& state);

/// The form with the values of the state. A blank block has the configured lengths, and times are shown as
/// configured.
Form formFor(const FormSubject& subject, const QuillmereState& state, Instant now,
             const config::Values& values = {});

/// The form that a person opens for an amendment, or for another length of a break.
FormSubject subjectOf(FormKind kind, const QuillmereState& state);

/// The form that corrects a session, or a finished block. It fits while it is current (`isCurrent`).
FormSubject correctionOf(const WorkSession& session);
FormSubject correctionOf(const Block& block);

/// The last session of the current block, if it can be corrected: it has ended and does not wait for its
/// review. Otherwise null.
const WorkSession* reviewedSession(const QuillmereState& state);

/// Whether the work is still about the form's subject, so that the form may be saved. A question can always
/// be asked, and be answered again.
bool isCurrent(const FormSubject& subject, const QuillmereState& state);

/// The move that saving the form makes; the last one where it makes two.
Move moveOf(const Form& form, const QuillmereState& state);

/// The form of a block with the words and lengths of another one, as if the person had typed them; its time
/// to begin stays.
Form filledLike(const Block& model, Form form);

/// Fills in the times of a sleep of the computer where the form asks for an earlier end or for an absence.
void fillIn(Form& form, const base::Sleep& sleep, Instant now);

/// The sentence that says in full how the times in the form are understood; empty for a form without a time.
/// Throws Unacceptable.
std::string timesInFull(const Form& form, const QuillmereState& state, const base::SeenFrom& here);

/// Saves the form. Throws WorkflowError when the state is no longer about the form's subject or when the
/// engine refuses, and Unacceptable when a value cannot be used.
void carryOut(const Form& form, QuillmereState& state, Instant now);

}  // namespace quillmere::work
