#include "records/json/record_keys.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <algorithm>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using Keys = std::vector<Key>;
using nlohmann::json;
constexpr Presence optional = Presence::optional;
constexpr Presence supplied = Presence::supplied;

// clang-format off
const Keys outcomeKeys = {
    {"id",    Kind::identifier},
    {"title", Kind::text},
};
const Keys planKeys = {
    {"id",                 Kind::identifier},
    {"block_outcome_id",   Kind::identifier, optional},
    {"intended_outcome",   Kind::text},
    {"first_action",       Kind::text},
    {"hazards_mitigation", Kind::text},
    {"nicu_framing",       Kind::text},
    {"energy",             Kind::integer},
    {"morale",             Kind::integer},
};
const Keys reviewKeys = {
    {"id",                Kind::identifier, supplied},
    {"completion",        Kind::completion},
    {"noteworthy_result", Kind::text},
    {"distractions",      Kind::text},
    {"improvement",       Kind::text},
};
const Keys sessionKeys = {
    {"id",                         Kind::identifier},
    {"number",                     Kind::integer},
    {"plan",                       Kind::record},
    {"started_at",                 Kind::instant},
    {"planned_duration_seconds",   Kind::duration},
    {"paused_at",                  Kind::instant, optional},
    {"accumulated_paused_seconds", Kind::duration},
    {"ended_at",                   Kind::instant, optional},
    {"review",                     Kind::record,  optional},
};
const Keys reflectionKeys = {
    {"output_produced",   Kind::text},
    {"normal_comparison", Kind::text},
    {"bogged_down",       Kind::text},
    {"went_well",         Kind::text},
    {"lessons",           Kind::text},
};
const Keys blockKeys = {
    {"id",                           Kind::identifier},
    {"created_at",                   Kind::instant},
    {"planned_start",                Kind::instant, optional},
    {"focus_duration_seconds",       Kind::duration},
    {"break_duration_seconds",       Kind::duration},
    {"cycle_count",                  Kind::integer},
    {"outcomes",                     Kind::list},
    {"why_value",                    Kind::text},
    {"done_test",                    Kind::text},
    {"hazards",                      Kind::text},
    {"measurable_check",             Kind::text},
    {"context_notes",                Kind::text},
    {"sessions",                     Kind::list},
    {"reflection",                   Kind::record,  optional},
    {"completed_at",                 Kind::instant, optional},
    {"scheduled_start_triggered_at", Kind::instant, optional},
};
const Keys questionKeys = {
    {"id",          Kind::identifier},
    {"question",    Kind::text},
    {"created_at",  Kind::instant},
    {"answer",      Kind::text,    optional},
    {"answered_at", Kind::instant, optional},
};
const Keys stateKeys = {
    {"id",                      Kind::identifier, supplied},
    {"workflow_state",          Kind::workflowState},
    {"current_block",           Kind::record,   optional},
    {"block_history",           Kind::list},
    {"planned_next_session",    Kind::record,   optional},
    {"break_started_at",        Kind::instant,  optional},
    {"break_extension_seconds", Kind::duration},
    {"break_end_notified_at",   Kind::instant,  optional},
    {"agent_questions",         Kind::list},
    {"updated_at",              Kind::instant},
};

const Keys taskKeys = {
    {"id",           Kind::identifier},
    {"title",        Kind::text},
    {"first_action", Kind::text},
    {"status",       Kind::text},
};
const Keys agentKeys = {
    {"schema_version",    Kind::integer},
    {"workflow_state",    Kind::text},
    {"interruptible",     Kind::boolean},
    {"block",             Kind::record,  optional},
    {"outcomes",          Kind::list},
    {"tasks",             Kind::list},
    {"sessions",          Kind::list},
    {"current_session",   Kind::record,  optional},
    {"next_session",      Kind::record,  optional},
    {"remaining_seconds", Kind::integer, optional},
    {"open_questions",    Kind::list},
    {"updated_at",        Kind::instant},
};

const Keys countdownKeys = {
    {"ends_at",                  Kind::instant},
    {"started_at",               Kind::instant},
    {"is_paused",                Kind::boolean},
    {"frozen_remaining_seconds", Kind::integer},
};
const Keys widgetKeys = {
    {"schema_version",         Kind::integer},
    {"phase",                  Kind::phase},
    {"route",                  Kind::route,   supplied},
    {"intended_outcome",       Kind::text},
    {"first_action",           Kind::text},
    {"sessions_started",       Kind::integer},
    {"sessions_planned",       Kind::integer},
    {"current_session_number", Kind::integer, optional},
    {"countdown",              Kind::record,  optional},
    {"energy",                 Kind::integer, optional},
    {"morale",                 Kind::integer, optional},
    {"open_question_count",    Kind::integer},
    {"open_questions",         Kind::list,    supplied},
    {"updated_at",             Kind::instant},
};

const Keys timerKeys = {
    {"kind",              Kind::timerKind},
    {"elapsed_seconds",   Kind::integer},
    {"remaining_seconds", Kind::integer},
    {"display_seconds",   Kind::integer},
    {"is_overtime",       Kind::boolean},
    {"is_paused",         Kind::boolean},
};
// clang-format on

template <class Root>
Document document(const std::string& name, const Root& root, const std::vector<Place>& places)
{
    return {name, json::parse(compactText(root)), places,
            [](const std::string& text) { return json::parse(compactText(decoded<Root>(text))); }};
}

std::vector<Document> makeDocuments()
{
    const QuillmereState state = completeState();
    const AgentSnapshot agent = StateStore("unused", {}).agentSnapshot(state, std::nullopt);
    const WidgetSnapshot widget = WidgetSnapshot::make(state, state.updatedAt);
    return {
        document("state", state,
                 {{"", stateKeys},
                  {"current_block", blockKeys},
                  {"current_block.outcomes[1]", outcomeKeys},
                  {"current_block.sessions[1]", sessionKeys},
                  {"current_block.sessions[1].plan", planKeys},
                  {"current_block.sessions[1].review", reviewKeys},
                  {"current_block.reflection", reflectionKeys},
                  {"block_history[0].sessions[1].plan", planKeys},
                  {"block_history[0].sessions[2].review", reviewKeys},
                  {"block_history[0].outcomes[0]", outcomeKeys},
                  {"planned_next_session", planKeys},
                  {"agent_questions[0]", questionKeys}}),
        document("agent", agent,
                 {{"", agentKeys},
                  {"tasks[1]", taskKeys},
                  {"block", blockKeys},
                  {"outcomes[0]", outcomeKeys},
                  {"sessions[1]", sessionKeys},
                  {"current_session", sessionKeys},
                  {"current_session.review", reviewKeys},
                  {"next_session", planKeys}}),
        document("widget", widget, {{"", widgetKeys}, {"countdown", countdownKeys}}),
        document("timer", *TimerSnapshot::derive(state, moment), {{"", timerKeys}}),
    };
}

}  // namespace

json::json_pointer Place::pointer() const
{
    std::string text = path.empty() ? "" : "/" + path;
    std::replace(text.begin(), text.end(), '.', '/');
    std::replace(text.begin(), text.end(), '[', '/');
    text.erase(std::remove(text.begin(), text.end(), ']'), text.end());
    return json::json_pointer(text);
}

std::string Place::pathOf(std::string_view key) const
{
    return path.empty() ? std::string(key) : path + '.' + std::string(key);
}

const std::vector<Document>& documents()
{
    static const std::vector<Document> all = makeDocuments();
    return all;
}

std::string expectedOf(Kind kind)
{
    switch (kind) {
        case Kind::identifier: return "an identifier such as 9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10";
        case Kind::text: return "a text";
        case Kind::integer: return "a whole number of 64 bits";
        case Kind::duration: return "a number within double precision";
        case Kind::instant: return "an instant such as 2026-01-31T09:15:00Z";
        case Kind::boolean: return "true or false";
        case Kind::workflowState:
            return R"(one of "idle", "blockPlanning", "sessionPlanning", "focusing", "sessionReview", )"
                   R"("breaking", "blockReview", "complete")";
        case Kind::completion: return R"(one of "Yes", "Half", "No")";
        case Kind::timerKind: return R"(one of "focus", "breakTime")";
        case Kind::phase:
            return R"(one of "idle", "planning", "focusing", "reviewing", "breaking", "complete")";
        case Kind::route:
            return R"(one of "idle", "block-planning", "session-planning", "focus", "session-review", )"
                   R"("break", "block-review")";
        case Kind::record: return "an object";
        case Kind::list: return "a list";
    }
    return "?";
}

std::vector<json> wrongValues(Kind kind)
{
    std::vector<json> wrong = {json::array({json::array({1, "a", nullptr})})};
    const auto add = [&](Kind right, const std::vector<json>& values) {
        // A number without a fraction is a duration as well.
        const bool fits = kind == right || (kind == Kind::duration && right == Kind::integer);
        if (!fits) {
            wrong.insert(wrong.end(), values.begin(), values.end());
        }
    };
    add(Kind::boolean, {true, false});
    add(Kind::integer, {0, 3, -7, 9.0});
    add(Kind::duration, {3.5, -0.25});
    add(Kind::text, {"", "abc", "null", "true", "3", "{}"});
    add(Kind::record, {json::object(), json::object({{"id", 3}, {"title", {{"a", json::array()}}}})});
    add(Kind::list, {json::array(), json::array({nullptr}), json::array({"abc"})});
    // Close, but of the wrong spelling.
    add(Kind::text, {"9F1C2A4E0B7D4C558E213A6B5D0C7F10", "2026-11-15T15:00:00", "2026-11-15T15:00:00.5Z",
                     "yes", "Focusing", "block_planning", "break_time", "planned"});
    if (kind == Kind::list) {
        wrong.erase(wrong.begin());
    }
    return wrong;
}

}  // namespace quillmere::test
