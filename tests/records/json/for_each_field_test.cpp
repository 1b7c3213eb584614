// The fields that forEachField visits are the members that the encoder writes.
#include <quillmere/engine/timer_table.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/for_each_field.hpp>
#include <quillmere/store/agent_tables.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_tables.hpp>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <type_traits>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using nlohmann::json;

template <class Element>
json jsonOf(const std::vector<Element>& list);
template <class Value>
json jsonOf(const std::optional<Value>& value);

/// Converts a value to JSON; a record by visiting its fields.
template <class Value>
json jsonOf(const Value& value)
{
    if constexpr (HasFields<Value>) {
        json object = json::object();
        forEachField<Value>([&](const auto& field) {
            const json member = jsonOf(value.*field.member);
            if (!member.is_null() || field.presence == KeyPresence::nullWhenAbsent) {
                object[std::string(field.key)] = member;
            }
        });
        return object;
    } else if constexpr (std::is_same_v<Value, Identifier>) {
        return value.text();
    } else if constexpr (std::is_same_v<Value, Instant>) {
        return quillmere::json::dateText(value);
    } else if constexpr (RawEnumeration<Value>) {
        return std::string(rawValue(value));
    } else {
        return value;
    }
}

template <class Element>
json jsonOf(const std::vector<Element>& list)
{
    json array = json::array();
    for (const Element& element : list) {
        array.push_back(jsonOf(element));
    }
    return array;
}

template <class Value>
json jsonOf(const std::optional<Value>& value)
{
    return value ? jsonOf(*value) : json(nullptr);
}

template <class Record>
void expectSameAsWritten(const Record& record)
{
    EXPECT_EQ(jsonOf(record), json::parse(test::compactText(record)));
}

TEST(ForEachField, givesAllThatIsWrittenOfTheState)
{
    expectSameAsWritten(test::completeState());
    expectSameAsWritten(QuillmereState::initial(test::moment));
}

TEST(ForEachField, givesAllThatIsWrittenOfTheSummariesAndTheTimer)
{
    const QuillmereState full = test::completeState();
    const QuillmereState initial = QuillmereState::initial(test::moment);
    const StateStore store("unused", StateStore::renameReplacing);
    for (const QuillmereState& state : {full, initial}) {
        expectSameAsWritten(store.agentSnapshot(state, std::nullopt));
        expectSameAsWritten(WidgetSnapshot::make(state, test::moment));
    }
    expectSameAsWritten(*TimerSnapshot::derive(full, test::moment));
}

TEST(ForEachField, passesEveryKeyWithItsValue)
{
    std::vector<std::string_view> keys;
    const Outcome outcome{.id = test::identifier(1), .title = "Chapter one"};
    forEachField(outcome, [&](std::string_view key, const auto& value) {
        keys.push_back(key);
        if constexpr (std::is_same_v<decltype(value), const std::string&>) {
            EXPECT_EQ(&value, &outcome.title);
        } else {
            EXPECT_EQ(&value, &outcome.id);
        }
    });
    EXPECT_EQ(keys, (std::vector<std::string_view>{"id", "title"}));
}

TEST(ForEachField, tellsWhetherAKeyIsWrittenWithoutAValue)
{
    const auto presenceOf = []<class Record>(std::type_identity<Record>, std::string_view key) {
        std::optional<KeyPresence> presence;
        forEachField<Record>([&](const auto& field) {
            if (field.key == key) {
                presence = field.presence;
            }
        });
        return presence;
    };
    EXPECT_EQ(presenceOf(std::type_identity<Block>(), "created_at"), KeyPresence::always);
    EXPECT_EQ(presenceOf(std::type_identity<Block>(), "planned_start"), KeyPresence::omittedWhenAbsent);
    EXPECT_EQ(presenceOf(std::type_identity<AgentSnapshot>(), "next_session"), KeyPresence::nullWhenAbsent);
    EXPECT_EQ(presenceOf(std::type_identity<Block>(), "next_session"), std::nullopt);
}

TEST(ForEachField, canRunAtCompileTime)
{
    constexpr std::size_t count = [] {
        std::size_t fields = 0;
        forEachField<SessionPlan>([&](const auto&) { ++fields; });
        return fields;
    }();
    EXPECT_EQ(count, 8U);
}

}  // namespace
}  // namespace quillmere
