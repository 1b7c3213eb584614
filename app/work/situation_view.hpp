// A situation as people see it: the values that every surface derives from a state.
#pragma once

#include "work/short_view.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/widget/design.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {

/// The part of the block that is done: `number` of `count` sessions have begun.
struct SessionView {
    std::int64_t number;
    std::int64_t count;
};

struct SituationView {
    WidgetPhase phase;
    QuillmereDesign::Accent accent;
    std::string_view title;  ///< of the phase
    std::string caption;     ///< beside the title: what is to be done
    std::optional<TimerView> timer;
    std::optional<Instant> overSince;      ///< as in ShortView
    std::optional<SessionView> session;    ///< absent without a block
    std::optional<ScheduleView> schedule;  ///< while a scheduled block waits
    std::optional<SessionPlan> plan;       ///< of the running session, otherwise of the next session
    std::string intendedOutcome;           ///< empty when there is none
    std::string firstAction;
    std::string
        outcomeServed;  ///< title of the block's outcome that the plan serves; empty when it serves none
    std::size_t openQuestionCount;
    std::vector<std::string_view> nextCommands;  ///< of the steps and amendments that are possible now

    static SituationView of(const workspace::Situation& situation);
};

}  // namespace quillmere::work
