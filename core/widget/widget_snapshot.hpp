// The summary that a widget shows.
#pragma once

#include <quillmere/records/instant.hpp>
#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/widget/widget_phase.hpp>
#include <quillmere/widget/widget_route.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere {

/// The running timer as instants, so that a widget can count down by itself.
struct WidgetCountdown {
    Instant endsAt;     ///< when no time remains, by the timer when the summary was made
    Instant startedAt;  ///< the start plus the completed pauses
    bool isPaused;
    std::int64_t frozenRemainingSeconds;  ///< remaining time when the summary was made

    friend bool operator==(const WidgetCountdown&, const WidgetCountdown&) = default;
};

/// The summary of a state at one instant. It is not updated; a widget computes the countdown from its
/// instants.
struct WidgetSnapshot {
    /// Written into every summary. A file with a higher version is refused.
    static constexpr std::int64_t currentSchemaVersion = 1;
    /// The largest number of question texts in a summary.
    static constexpr std::int64_t maxOpenQuestions = 3;

    std::int64_t schemaVersion;
    WidgetPhase phase;
    WidgetRoute route;
    std::string intendedOutcome;  ///< the plan's intended outcome, or an outcome of the block; may be empty
    std::string firstAction;
    std::int64_t sessionsStarted;
    std::int64_t sessionsPlanned;
    std::optional<std::int64_t> currentSessionNumber;  ///< while focusing only
    std::optional<WidgetCountdown> countdown;
    std::optional<std::int64_t> energy;
    std::optional<std::int64_t> morale;
    std::int64_t openQuestionCount;
    std::vector<std::string> openQuestions;  ///< the texts of the first ones
    Instant updatedAt;                       ///< when the summary was made

    /// The summary of a state at an instant. Values that the state does not have are empty, 0 or absent. The
    /// fatal errors are those of TimerSnapshot::derive.
    static WidgetSnapshot make(const QuillmereState& from, Instant at);

    /// A fixed sample in mid-focus, for galleries and previews.
    static WidgetSnapshot placeholder(Instant now);

    /// The summary that a widget shows when there is no file.
    static WidgetSnapshot empty(Instant now);

    /// The progress of the running timer, 0 to 1. Absent without a countdown, and for a countdown without a
    /// length. The progress of a paused countdown does not change.
    std::optional<double> sessionProgress(Instant at) const;

    /// The share of the planned sessions that are started, 0 to 1.
    double blockProgress() const;

    /// The number of open questions whose texts are not in the summary. An overflow is a fatal error.
    std::int64_t hiddenOpenQuestionCount() const;

    friend bool operator==(const WidgetSnapshot&, const WidgetSnapshot&) = default;
};

}  // namespace quillmere
