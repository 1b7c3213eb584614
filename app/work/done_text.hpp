// What a person is told after a step; every surface says the same.
#pragma once

#include "base/text/hours.hpp"

#include <quillmere/records/instant.hpp>

#include <string>
#include <string_view>

namespace quillmere::work::done {

inline constexpr std::string_view blockBegun = "The block has begun.";
inline constexpr std::string_view blockScheduled = "The block is scheduled.";
inline constexpr std::string_view scheduleEdited = "The block is back in planning.";
inline constexpr std::string_view scheduleChanged = "The scheduled block is changed.";
inline constexpr std::string_view scheduleCancelled = "The scheduled block is discarded.";
inline constexpr std::string_view blockFinished = "The block is finished.";
inline constexpr std::string_view planningLeft = "Planning is left.";
inline constexpr std::string_view scheduleKept = "The scheduled block is as it was.";
inline constexpr std::string_view blockDropped = "The block is dropped.";
inline constexpr std::string_view blockAtItsEnd = "No session follows; the block waits for its reflection.";
inline constexpr std::string_view blockChanged = "The block is changed.";
inline constexpr std::string_view blockDeleted = "The block is deleted.";
inline constexpr std::string_view recordCorrected = "The record is corrected.";
inline constexpr std::string_view workReset = "The work is reset.";

inline constexpr std::string_view focusStarted = "Focus.";
inline constexpr std::string_view focusPaused = "Paused.";
inline constexpr std::string_view focusResumed = "Focus goes on.";
inline constexpr std::string_view focusEnded = "The focus session has ended.";
inline constexpr std::string_view focusLengthened = "The session is longer now.";
inline constexpr std::string_view focusShortened = "The session is shorter now.";
inline constexpr std::string_view focusLengthChanged = "The session has another length now.";
inline constexpr std::string_view focusWentOn = "The session goes on.";
inline constexpr std::string_view pauseAdded = "That time is a pause.";
inline constexpr std::string_view reviewSaved = "The review is saved.";
inline constexpr std::string_view reviewSavedAndFinished =
    "The review is saved. No session follows; the block waits for its reflection.";
inline constexpr std::string_view reviewSavedAndBlockFinished = "The review is saved. The block is finished.";

inline constexpr std::string_view breakExtended = "The break is longer now.";
inline constexpr std::string_view breakExtendedAndOver = "The break is longer now, and still over.";
inline constexpr std::string_view breakEnded = "The break has ended.";
inline constexpr std::string_view breakSkipped = "The break is skipped.";

inline constexpr std::string_view questionAsked = "The question waits for an answer.";
inline constexpr std::string_view questionAnswered = "Answered.";
inline constexpr std::string_view questionDismissed = "The question is closed without an answer.";

// A time that the person typed is said in full (base::localTextInFull), so that they see how it was
// understood.

/// "Scheduled for Mon 23 Nov 2026, 14:00."
std::string scheduledFor(Instant start, base::Hours hours);
/// "The focus session ended on Mon 23 Nov 2026, 14:20."
std::string endedOn(Instant end, base::Hours hours);
/// "A pause from Mon 23 Nov 2026, 14:20 to Mon 23 Nov 2026, 14:35."
std::string pauseOf(Instant from, Instant to, base::Hours hours);

}  // namespace quillmere::work::done
