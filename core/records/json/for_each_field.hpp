// Visits the fields of a record under the keys that they have in JSON.
#pragma once

#include <quillmere/records/json/table.hpp>

#include <string_view>
#include <tuple>
#include <type_traits>

namespace quillmere {

/// A record whose fields can be visited. Its table must be included: `records/json/record_tables.hpp` for the
/// records of the state, `engine/timer_table.hpp`, `store/agent_tables.hpp` or `widget/widget_tables.hpp`.
template <class Record>
concept HasFields = json::HasTable<Record>;

/// Whether the key of a field is written.
enum class KeyPresence {
    always,             ///< the value cannot be absent
    nullWhenAbsent,     ///< an absent value is written as null
    omittedWhenAbsent,  ///< an absent value is not written at all
};

/// One field of a record.
template <class Record_, class Value_>
struct RecordField {
    using Record = Record_;
    using Value = Value_;  ///< a `std::optional` unless `presence` is `always`

    std::string_view key;  ///< as in JSON, in snake_case
    Value Record::*member;
    KeyPresence presence;
};

namespace json {

template <class Field>
constexpr RecordField<typename Field::Record, typename Field::Value> recordField()
{
    constexpr KeyPresence presence = !Field::isOptional ? KeyPresence::always
                                     : std::is_same_v<typename Field::Rule, NullWhenAbsent>
                                         ? KeyPresence::nullWhenAbsent
                                         : KeyPresence::omittedWhenAbsent;
    return {.key = Field::fileKey.view(), .member = Field::member, .presence = presence};
}

template <class... Field, class Visitor>
constexpr void forEachRow(std::type_identity<std::tuple<Field...>>, Visitor& visit)
{
    (visit(recordField<Field>()), ...);
}

}  // namespace json

/// Calls `visit(field)` with the RecordField of each field of `Record`, in the order of the fields.
template <HasFields Record, class Visitor>
constexpr void forEachField(Visitor&& visit)
{
    json::forEachRow(std::type_identity<json::Fields<Record>>(), visit);
}

/// Calls `visit(key, value)` for each field of `record`, in the order of the fields. The values keep their
/// types: records and lists are not visited further, and an optional is passed as it is.
template <HasFields Record, class Visitor>
constexpr void forEachField(const Record& record, Visitor&& visit)
{
    forEachField<Record>([&](const auto& field) { visit(field.key, record.*field.member); });
}

}  // namespace quillmere
