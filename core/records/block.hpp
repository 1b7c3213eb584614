// A planned unit of work: focus sessions with breaks between them.
#pragma once

#include <quillmere/records/block_review.hpp>
#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/outcome.hpp>
#include <quillmere/records/work_session.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere {

struct Block {
    Identifier id;
    Instant createdAt;
    std::optional<Instant> plannedStart;  ///< present when scheduled for later
    double focusDurationSeconds;          ///< of each focus session
    double breakDurationSeconds;          ///< of each break
    std::int64_t cycleCount;              ///< planned number of focus sessions
    std::vector<Outcome> outcomes;
    std::string whyValue;
    std::string doneTest;
    std::string hazards;
    std::string measurableCheck;
    std::string contextNotes;
    std::vector<WorkSession> sessions;  ///< in order of start; the last is the current one
    std::optional<BlockReview> reflection;
    std::optional<Instant> completedAt;
    std::optional<Instant> scheduledStartTriggeredAt;  ///< when it began, by its schedule or earlier

    /// A block to start planning with: 8 sessions of 25 minutes, breaks of 5 minutes and one outcome without
    /// a title. The identifiers are random.
    static Block default_(Instant now);

    /// The planned start, or the creation when there is none, plus one focus session and one break for each
    /// cycle, the last one included. The sessions that were started do not matter.
    Instant plannedEnd() const;

    /// Whether fewer sessions have been started than are planned.
    bool hasCyclesLeft() const;

    /// The outcome that a plan works towards: the first with the identifier that the plan names. Null when
    /// the plan names none, or none of this block.
    const Outcome* outcomeServed(const SessionPlan& plan) const;

    friend bool operator==(const Block&, const Block&) = default;
};

}  // namespace quillmere
