// From an answer to the member of a record and back: the only parser of each field, and its refusals.
#pragma once

#include "base/text/hours.hpp"
#include "base/text/local_time.hpp"
#include "work/fields/field_value.hpp"
#include "work/fields/fields.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {

/// A text that was given to a field; `field` is named by a refusal.
struct Answer {
    std::string field;
    std::string text;
};

// Each throws Unacceptable when the text is no such value. Numbers outside their limits are left to the
// engine to refuse, except those that only this program refuses.
double durationFrom(const Answer& answer);
std::int64_t numberFrom(const Answer& answer, const Limits& limits);
/// Yes, half or no, or the first letter, in upper or lower case.
CompletionResult completionFrom(const Answer& answer);
/// A local time, also one that has passed.
Instant startFrom(const Answer& answer, Instant now);

/// A local time that has passed: "14:20" or "2026-11-15 14:20", with or without seconds
/// (base::pastInstantFromLocalText).
Instant pastTimeFrom(const Answer& answer, Instant now);
/// A duration in seconds, negative with a minus sign in front.
double lengthChangeFrom(const Answer& answer);

/// Throws Unacceptable when the time has passed.
void requireToCome(const std::string& field, Instant start, const base::SeenFrom& here);

/// Yes or no, or the first letter, in upper or lower case.
bool agreementFrom(const Answer& answer);

/// Throws Unacceptable when the text of a question is blank.
void requireQuestion(const std::string& field, std::string_view text);

/// Throws Unacceptable when an answer to a question is blank.
void requireAnswer(const std::string& field, std::string_view text);

/// The answer of a person who closes a question without one. Agents are told that it means that.
inline constexpr std::string_view dismissal = "(closed without an answer)";

/// Drops untitled outcomes, but keeps at least one. Outcomes without a key get an identifier of their own.
std::vector<Outcome> outcomesFrom(const std::vector<ListItem>& items);

/// The member as an answer that would set it. Seconds of a planned start are left out.
template <class Record>
FieldValue valueIn(const Record& record, const RecordField<Record>& field,
                   base::Hours hours = base::Hours::twentyFour);

/// Sets the member to an answer; `id` is the name of the field in its form or command. Empty texts mean: no
/// planned start, no outcome served, and a rating that stays as it is. Throws Unacceptable.
template <class Record>
void setFrom(Record& record, const RecordField<Record>& field, const std::string& id, const FieldValue& value,
             Instant now);

/// Throws Unacceptable unless the answer can be read, and also for a number that the engine would refuse: a
/// prompt asks again at once.
template <class Record>
void requireUsable(const Record& present, const RecordField<Record>& field, const std::string& answer,
                   Instant now);

}  // namespace quillmere::work
