#include "records/json/record_keys.hpp"

#include <quillmere/engine/timer_table.hpp>
#include <quillmere/records/json/for_each_field.hpp>
#include <quillmere/store/agent_tables.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_tables.hpp>

#include <algorithm>
#include <set>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using Keys = std::vector<Key>;
using nlohmann::json;

template <class Value>
inline constexpr Kind kindOf = HasFields<Value> ? Kind::record : Kind::list;
template <>
inline constexpr Kind kindOf<Identifier> = Kind::identifier;
template <>
inline constexpr Kind kindOf<std::string> = Kind::text;
template <>
inline constexpr Kind kindOf<std::int64_t> = Kind::integer;
template <>
inline constexpr Kind kindOf<double> = Kind::duration;
template <>
inline constexpr Kind kindOf<Instant> = Kind::instant;
template <>
inline constexpr Kind kindOf<bool> = Kind::boolean;
template <>
inline constexpr Kind kindOf<WorkflowState> = Kind::workflowState;
template <>
inline constexpr Kind kindOf<CompletionResult> = Kind::completion;
template <>
inline constexpr Kind kindOf<TimerKind> = Kind::timerKind;
template <>
inline constexpr Kind kindOf<WidgetPhase> = Kind::phase;
template <>
inline constexpr Kind kindOf<WidgetRoute> = Kind::route;
template <class Value>
inline constexpr Kind kindOf<std::optional<Value>> = kindOf<Value>;

/// The keys of a record, in the order of its fields; `supplied` are those that the reader supplies.
template <class Record>
Keys keysOf(const std::set<std::string_view>& supplied = {})
{
    Keys keys;
    forEachField<Record>([&]<class Value>(const RecordField<Record, Value>& field) {
        const bool isRequired = field.presence == KeyPresence::always;
        keys.push_back({.name = field.key,
                        .kind = kindOf<Value>,
                        .presence = supplied.contains(field.key) ? Presence::supplied
                                    : isRequired                 ? Presence::required
                                                                 : Presence::optional});
    });
    return keys;
}

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
    const Keys stateKeys = keysOf<QuillmereState>({"id"});
    const Keys blockKeys = keysOf<Block>();
    const Keys outcomeKeys = keysOf<Outcome>();
    const Keys sessionKeys = keysOf<WorkSession>();
    const Keys planKeys = keysOf<SessionPlan>();
    const Keys reviewKeys = keysOf<SessionReview>({"id"});
    const Keys questionKeys = keysOf<AgentQuestion>();
    const Keys widgetKeys = keysOf<WidgetSnapshot>({"route", "open_questions"});
    return {
        document("state", state,
                 {{"", stateKeys},
                  {"current_block", blockKeys},
                  {"current_block.outcomes[1]", outcomeKeys},
                  {"current_block.sessions[1]", sessionKeys},
                  {"current_block.sessions[1].plan", planKeys},
                  {"current_block.sessions[1].review", reviewKeys},
                  {"current_block.reflection", keysOf<BlockReview>()},
                  {"block_history[0].sessions[1].plan", planKeys},
                  {"block_history[0].sessions[2].review", reviewKeys},
                  {"block_history[0].outcomes[0]", outcomeKeys},
                  {"planned_next_session", planKeys},
                  {"agent_questions[0]", questionKeys}}),
        document("agent", agent,
                 {{"", keysOf<AgentSnapshot>()},
                  {"tasks[1]", keysOf<AgentTaskSnapshot>()},
                  {"block", blockKeys},
                  {"outcomes[0]", outcomeKeys},
                  {"sessions[1]", sessionKeys},
                  {"current_session", sessionKeys},
                  {"current_session.review", reviewKeys},
                  {"next_session", planKeys}}),
        document("widget", widget, {{"", widgetKeys}, {"countdown", keysOf<WidgetCountdown>()}}),
        document("timer", *TimerSnapshot::derive(state, moment), {{"", keysOf<TimerSnapshot>()}}),
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
        // A whole number is also a duration.
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
    // Similar texts with a wrong spelling.
    add(Kind::text, {"9F1C2A4E0B7D4C558E213A6B5D0C7F10", "2026-11-15T15:00:00", "2026-11-15T15:00:00.5Z",
                     "yes", "Focusing", "block_planning", "break_time", "planned"});
    if (kind == Kind::list) {
        wrong.erase(wrong.begin());
    }
    return wrong;
}

}  // namespace quillmere::test
