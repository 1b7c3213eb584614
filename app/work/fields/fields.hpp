// The fields that a person fills in: one table for each record. The options of the commands, their prompts,
// the forms, and what is shown again of the words all follow from these tables.
#pragma once

#include "base/text/duration.hpp"
#include "work/fields/prompt.hpp"
#include "workspace/screening.hpp"

#include <quillmere/records/block.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillmere::work {

/// The member of a record that an answer is stored in.
template <class Record>
using Member = std::variant<std::string Record::*, double Record::*, std::int64_t Record::*,
                            CompletionResult Record::*, std::optional<Instant> Record::*,
                            std::optional<Identifier> Record::*, std::vector<Outcome> Record::*>;

template <class Record>
struct RecordField {
    Prompt prompt;
    Member<Record> member;
    std::string_view label;  ///< stands before the value wherever it is shown again
};

/// Durations are seconds.
inline constexpr Limits durationLimits = {static_cast<std::int64_t>(base::shortestDuration),
                                          static_cast<std::int64_t>(base::longestDuration)};
inline constexpr Limits cycleLimits = {1, workspace::mostCycles, true};
inline constexpr Limits ratingLimits = {1, 5};

namespace field_tables {

using enum FieldKind;

// clang-format off
inline constexpr auto block = std::to_array<RecordField<Block>>({
    {{"outcome",   "What should come out of it?",           list, {}, "(may be given several times)"}, &Block::outcomes, "Outcome"},
    {{"why",       "Why does it matter?",                   text}, &Block::whyValue, "Why"},
    {{"done-test", "How will you know that it is done?",    line}, &Block::doneTest, "Done when"},
    {{"hazards",   "What could get in the way?",            text}, &Block::hazards, "In the way"},
    {{"check",     "What can be measured at the end?",      line}, &Block::measurableCheck, "To measure"},
    {{"notes",     "What else should be at hand?",          text}, &Block::contextNotes, "At hand"},
    {{"focus",     "How long is a focus session?",          line, durationLimits, "25m (usual), 1h30m"}, &Block::focusDurationSeconds, "Focus"},
    {{"break",     "How long is a break?",                  line, durationLimits, "5m (usual)"}, &Block::breakDurationSeconds, "Break"},
    {{"cycles",    "How many focus sessions?",              line, cycleLimits, "8 (usual)"}, &Block::cycleCount, "Sessions"},
    {{"at",        "When does it begin?",                   line, {}, "14:30, 9am, \"mon 14:00\", \"2026-11-15 09:00\", +1h", "14:30, +1h; empty: now"}, &Block::plannedStart, "Begins"},
});

inline constexpr auto plan = std::to_array<RecordField<SessionPlan>>({
    {{"outcome",      "What should this session bring about?",       line}, &SessionPlan::intendedOutcome, "Outcome"},
    {{"first-action", "What is the first action?",                   line}, &SessionPlan::firstAction, "First action"},
    {{"hazards",      "What could get in the way, and what then?",   text}, &SessionPlan::hazardsMitigation, "In the way"},
    {{"framing",      "How will you look at it?",                    text}, &SessionPlan::nicuFraming, "View"},
    {{"towards",      "Which outcome of the block does it serve?",   choice, {}, "(its number)"}, &SessionPlan::blockOutcomeID, "Towards"},
    {{"energy",       "How much energy is there?",                   choice, ratingLimits, "1 to 5", "1 to 5"}, &SessionPlan::energy, "Energy"},
    {{"morale",       "How is the morale?",                          choice, ratingLimits, "1 to 5", "1 to 5"}, &SessionPlan::morale, "Morale"},
});

inline constexpr auto review = std::to_array<RecordField<SessionReview>>({
    {{"completion",   "Was it completed?",           choice, {}, {}, "yes, half, no"}, &SessionReview::completion, "Completed"},
    {{"result",       "What came out of it?",        text}, &SessionReview::noteworthyResult, "Result"},
    {{"distractions", "What distracted you?",        text}, &SessionReview::distractions, "Distractions"},
    {{"improvement",  "What would you do better?",   text}, &SessionReview::improvement, "Do better"},
});

inline constexpr auto reflection = std::to_array<RecordField<BlockReview>>({
    {{"output",      "What was produced?",                     text}, &BlockReview::outputProduced, "Produced"},
    {{"comparison",  "How does it compare with the usual?",    text}, &BlockReview::normalComparison, "Compared"},
    {{"bogged-down", "Where did it bog down?",                 text}, &BlockReview::boggedDown, "Bogged down"},
    {{"went-well",   "What went well?",                        text}, &BlockReview::wentWell, "Went well"},
    {{"lessons",     "What is to be learnt from it?",          text}, &BlockReview::lessons, "Lessons"},
});

// What amendments of a running session ask for.
inline constexpr Prompt lengthChange = {"by", "By how much?", line, {}, "10m, 90s; --by=-5m makes it shorter", "10m; -5m makes it shorter"};
inline constexpr Prompt extension = {"by", "By how much?", line, {}, "10m, 90s", "10m"};
inline constexpr Prompt timeSinceEnd = {"since-end", "What was the time since its end?", choice};
inline constexpr Prompt earlierEnd   = {"at", "When did it end?", line, {}, "14:20", "14:20"};
inline constexpr Prompt anotherStart = {"at", "When does it begin?", line, {}, {}, "14:30, +1h"};
inline constexpr Prompt awayFrom     = {"from", "When did the pause begin?", line, {}, "14:20", "14:20"};
inline constexpr Prompt awayTo       = {"to", "When did it end?", line, {}, "14:35 (usual: now)", "14:35; empty: now"};
inline constexpr Prompt endedAt      = {"ended-at", "Did it end earlier?", line, {}, "14:20", "14:20"};
// clang-format on

}  // namespace field_tables

inline constexpr auto& blockFields = field_tables::block;
/// Those that can be changed once the block has begun: all but the planned start, which is the last one.
inline constexpr auto begunBlockFields =
    std::span(field_tables::block).first<field_tables::block.size() - 1>();
inline constexpr auto& planFields = field_tables::plan;
inline constexpr auto& reviewFields = field_tables::review;
inline constexpr auto& reflectionFields = field_tables::reflection;

// Of amendments.
inline constexpr auto& lengthChangePrompt = field_tables::lengthChange;
inline constexpr auto& extensionPrompt = field_tables::extension;
inline constexpr auto& timeSinceEndPrompt = field_tables::timeSinceEnd;
inline constexpr auto& earlierEndPrompt = field_tables::earlierEnd;
inline constexpr auto& anotherStartPrompt = field_tables::anotherStart;
inline constexpr auto& awayFromPrompt = field_tables::awayFrom;
inline constexpr auto& awayToPrompt = field_tables::awayTo;
inline constexpr auto& endedAtPrompt = field_tables::endedAt;

/// The prompts for an answer to a question and for a new question.
inline constexpr Prompt answerPrompt = {"answer", "The answer", FieldKind::text};
inline constexpr Prompt questionPrompt = {"question", "What is to be asked?", FieldKind::text};

}  // namespace quillmere::work
