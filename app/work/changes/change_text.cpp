#include "work/changes/change_text.hpp"

#include "base/text/columns.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <array>
#include <string_view>

namespace quillmere::work {
namespace {

/// Of the text at the end.
constexpr std::size_t mostColumns = 60;
/// Beyond these bytes the text is cut in any case.
constexpr std::size_t mostBytes = (mostColumns + 1) * base::mostBytesPerColumn;

struct ChangeRow {
    ChangeKind value;
    std::string_view words;  ///< with places for {session}, {time} and {length}; the text follows
    bool leavesSomething = true;
};

constexpr bool leavesNothing = false;

// clang-format off
constexpr auto changeRows = std::to_array<ChangeRow>({
    {ChangeKind::planningBegun,         "planning of a block begun"},
    {ChangeKind::planningGivenUp,       "planning of a block given up", leavesNothing},
    {ChangeKind::blockScheduled,        "block scheduled for {time}"},
    {ChangeKind::blockOpened,           "scheduled block opened for editing"},
    {ChangeKind::blockCancelled,        "scheduled block cancelled", leavesNothing},
    {ChangeKind::blockBegun,            "block begun"},
    {ChangeKind::scheduledBlockStarted, "scheduled block started at {time}"},
    {ChangeKind::scheduledBlockBegun,   "scheduled block begun by hand"},
    {ChangeKind::blockChanged,          "block changed"},
    {ChangeKind::blockEndedEarly,       "block brought to its end early"},
    {ChangeKind::blockDropped,          "block dropped", leavesNothing},
    {ChangeKind::blockFinished,         "block finished"},
    {ChangeKind::blockTakenUpAgain,     "finished block taken up again"},
    {ChangeKind::finishedBlockChanged,  "finished block changed"},
    {ChangeKind::finishedBlockDeleted,  "finished block deleted", leavesNothing},
    {ChangeKind::sessionStarted,        "focus session {session} started"},
    {ChangeKind::planChanged,           "plan of session {session} changed"},
    {ChangeKind::focusPaused,           "focus session {session} paused"},
    {ChangeKind::focusResumed,          "focus session {session} resumed"},
    {ChangeKind::pauseAdded,            "focus session {session} paused for {length}"},
    {ChangeKind::pausesShortened,       "pauses of session {session} shortened by {length}"},
    {ChangeKind::focusEnded,            "focus session {session} ended at {time}"},
    {ChangeKind::focusEndedEarly,       "focus session {session} ended early at {time}"},
    {ChangeKind::focusWentOn,           "focus session {session} continued"},
    {ChangeKind::endMoved,              "end of session {session} moved to {time}"},
    {ChangeKind::focusLengthened,       "focus session {session} lengthened by {length}"},
    {ChangeKind::focusShortened,        "focus session {session} shortened by {length}"},
    {ChangeKind::reviewSaved,           "review of session {session} saved"},
    {ChangeKind::reviewChanged,         "review of session {session} changed"},
    {ChangeKind::reviewRemoved,         "review of session {session} removed", leavesNothing},
    {ChangeKind::sessionChanged,        "session {session} changed"},
    {ChangeKind::sessionRemoved,        "session {session} removed", leavesNothing},
    {ChangeKind::breakBegun,            "break begun at {time}"},
    {ChangeKind::breakExtended,         "break extended by {length}"},
    {ChangeKind::breakShortened,        "break shortened by {length}"},
    {ChangeKind::breakOver,             "break was over at {time}"},
    {ChangeKind::breakEnded,            "break ended"},
    {ChangeKind::breakSkipped,          "break skipped"},
    {ChangeKind::nextPlanSaved,         "plan of the next session saved"},
    {ChangeKind::nextPlanChanged,       "plan of the next session changed"},
    {ChangeKind::nextPlanDropped,       "plan of the next session dropped", leavesNothing},
    {ChangeKind::questionAsked,         "question was asked at {time}"},
    {ChangeKind::questionAnswered,      "question answered"},
    {ChangeKind::answerChanged,         "answer changed"},
    {ChangeKind::answerRemoved,         "answer removed", leavesNothing},
    {ChangeKind::questionChanged,       "question changed"},
    {ChangeKind::questionRemoved,       "question removed", leavesNothing},
    {ChangeKind::workMoved,             "work moved"},
    {ChangeKind::otherDetails,          "other details changed", leavesNothing},
    {ChangeKind::savedAgain,            "saved again without a change", leavesNothing},
});
// clang-format on
static_assert(inCaseOrder(changeRows));

/// Puts the value in its place; without a value, nothing, and no space before it either.
void fill(std::string& words, std::string_view place, const std::string& value)
{
    const std::size_t start = words.find(place);
    if (start == std::string::npos) {
        return;
    }
    if (value.empty()) {
        words.erase(start - 1, place.size() + 1);
    } else {
        words.replace(start, place.size(), value);
    }
}

}  // namespace

std::string changeText(const Change& change, const base::SeenFrom& here)
{
    std::string words(rowOf(changeRows, change.kind).words);
    fill(words, "{session}", change.session ? std::to_string(*change.session) : "");
    fill(words, "{time}", change.at ? base::localTextSeenFrom(here, *change.at) : "");
    fill(words, "{length}", change.seconds ? base::durationText(*change.seconds) : "");
    if (!change.text.empty()) {
        words += ": " + base::cutToColumns(base::sanitized(change.text.substr(0, mostBytes)), mostColumns);
    }
    return words;
}

bool leavesSomething(ChangeKind kind) { return rowOf(changeRows, kind).leavesSomething; }

}  // namespace quillmere::work
