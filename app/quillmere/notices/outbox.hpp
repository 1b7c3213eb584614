// What has still to be told.
#pragma once

#include "notices/standing_events.hpp"

#include <string>
#include <vector>

namespace quillmere::app {

/// Events that were claimed and not yet told, in order. Only what stands stays, so that a person who was out
/// of reach is told how things are, not how they came about.
class Outbox {
public:
    void add(const std::vector<StandingEvent>& events);

    /// Drops what is not among `standing` any more.
    void keepOnly(const std::vector<StandingEvent>& standing);

    /// Takes out what makes the next notice: the event of the work, or else all questions, as far as they
    /// may be told now. Nothing when nothing may.
    std::vector<StandingEvent> takeNext(const QuillmereState& state);

    /// Whether `takeNext` would return anything.
    bool hasNext(const QuillmereState& state) const;

    const std::vector<StandingEvent>& events() const { return events_; }

private:
    std::vector<StandingEvent> events_;
};

}  // namespace quillmere::app
