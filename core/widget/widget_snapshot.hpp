// The small, flat summary that a widget shows.
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

/// The running timer, so told that a widget can count down by itself.
struct WidgetCountdown {
    Instant endsAt;     ///< when the remaining time reaches zero, as seen when the summary was made
    Instant startedAt;  ///< the start, moved on by the pauses
    bool isPaused;
    std::int64_t frozenRemainingSeconds;  ///< what remained when the summary was made

    friend bool operator==(const WidgetCountdown&, const WidgetCountdown&) = default;
};

/// A picture of one instant. Nothing in it is updated later; a countdown goes on by its instants.
struct WidgetSnapshot {
    /// Written into every summary; a file with a higher one is refused.
    static constexpr std::int64_t currentSchemaVersion = 1;
    /// The most question texts that a summary carries.
    static constexpr std::int64_t maxOpenQuestions = 3;

    std::int64_t schemaVersion;
    WidgetPhase phase;
    WidgetRoute route;
    std::string intendedOutcome;  ///< the line to show: of the plan, or an outcome of the block; may be empty
    std::string firstAction;
    std::int64_t sessionsStarted;
    std::int64_t sessionsPlanned;
    std::optional<std::int64_t> currentSessionNumber;  ///< while focusing only
    std::optional<WidgetCountdown> countdown;
    std::optional<std::int64_t> energy;
    std::optional<std::int64_t> morale;
    std::int64_t openQuestionCount;
    std::vector<std::string> openQuestions;  ///< the first of them
    Instant updatedAt;                       ///< when the summary was made

    /// The summary of a state at an instant; what the state lacks is empty, 0 or absent. The fatal
    /// errors are those of TimerSnapshot::derive.
    static WidgetSnapshot make(const QuillmereState& from, Instant at);

    /// A fixed sample in mid-focus, for galleries and previews.
    static WidgetSnapshot placeholder(Instant now);

    /// What a widget shows when nothing has been written.
    static WidgetSnapshot empty(Instant now);

    /// How far the running timer is, 0 to 1; absent without a countdown that has a length. A paused
    /// one stands still.
    std::optional<double> sessionProgress(Instant at) const;

    /// The share of the planned sessions that have been started, 0 to 1.
    double blockProgress() const;

    /// How many open questions are not among the texts. A count that overflows is a fatal error.
    std::int64_t hiddenOpenQuestionCount() const;

    friend bool operator==(const WidgetSnapshot&, const WidgetSnapshot&) = default;
};

}  // namespace quillmere
