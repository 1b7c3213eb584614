// The JSON fields of the widget's summary.
#pragma once

#include <quillmere/records/json/table.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <string>
#include <vector>

namespace quillmere::json {

// Older programs did not write these two keys.
inline constexpr auto routeOfPhase = [](const WidgetSnapshot& snapshot) {
    return fromPhase<WidgetRoute>(snapshot.phase);
};
inline constexpr auto noQuestions = [](const WidgetSnapshot&) { return std::vector<std::string>(); };

// clang-format off

template <>
struct Table<WidgetCountdown> {
    using Fields = std::tuple<
        Field<"endsAt",                 &WidgetCountdown::endsAt>,
        Field<"startedAt",              &WidgetCountdown::startedAt>,
        Field<"isPaused",               &WidgetCountdown::isPaused>,
        Field<"frozenRemainingSeconds", &WidgetCountdown::frozenRemainingSeconds>>;
};

template <>
struct Table<WidgetSnapshot> {
    using Fields = std::tuple<
        Field<"schemaVersion",        &WidgetSnapshot::schemaVersion>,
        Field<"phase",                &WidgetSnapshot::phase>,
        Field<"route",                &WidgetSnapshot::route, MadeWhenMissing<routeOfPhase>>,
        Field<"intendedOutcome",      &WidgetSnapshot::intendedOutcome>,
        Field<"firstAction",          &WidgetSnapshot::firstAction>,
        Field<"sessionsStarted",      &WidgetSnapshot::sessionsStarted>,
        Field<"sessionsPlanned",      &WidgetSnapshot::sessionsPlanned>,
        Field<"currentSessionNumber", &WidgetSnapshot::currentSessionNumber>,
        Field<"countdown",            &WidgetSnapshot::countdown>,
        Field<"energy",               &WidgetSnapshot::energy>,
        Field<"morale",               &WidgetSnapshot::morale>,
        Field<"openQuestionCount",    &WidgetSnapshot::openQuestionCount>,
        Field<"openQuestions",        &WidgetSnapshot::openQuestions, MadeWhenMissing<noQuestions>>,
        Field<"updatedAt",            &WidgetSnapshot::updatedAt>>;
};

// clang-format on

}  // namespace quillmere::json
