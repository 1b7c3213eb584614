// JSON Schemas (2020-12) of records, derived from the tables by which the records are written.
#pragma once

#include "base/json.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/json/for_each_field.hpp>
#include <quillmere/store/agent_tables.hpp>

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace quillmere::agent {

/// The schemas of identifiers and instants; both are strings in JSON.
struct TextSchemas {
    base::SortedJson identifier;
    base::SortedJson instant;
};

/// The name of a record's schema among the definitions (`$defs`) of another.
template <class Record>
inline constexpr const char* definitionName = nullptr;
template <>
inline constexpr const char* definitionName<Outcome> = "outcome";
template <>
inline constexpr const char* definitionName<AgentTaskSnapshot> = "task";
template <>
inline constexpr const char* definitionName<AgentQuestion> = "openQuestion";
template <>
inline constexpr const char* definitionName<SessionPlan> = "plan";
template <>
inline constexpr const char* definitionName<WorkSession> = "session";
template <>
inline constexpr const char* definitionName<SessionReview> = "review";
template <>
inline constexpr const char* definitionName<BlockReview> = "reflection";
template <>
inline constexpr const char* definitionName<Block> = "block";

/// The schema that refers to a definition.
inline base::SortedJson definitionReference(const std::string& name) { return {{"$ref", "#/$defs/" + name}}; }

/// The schema of an enumeration that is written as its text.
template <RawEnumeration Enumeration>
base::SortedJson enumerationSchema()
{
    base::SortedJson texts = base::SortedJson::array();
    for (const Enumeration value : allCases<Enumeration>()) {
        texts.push_back(rawValue(value));
    }
    return {{"enum", texts}};
}

/// The schema of a value that is not null. A record is referred to by its definition.
template <class Value>
base::SortedJson valueSchema(std::type_identity<Value>, const TextSchemas& texts)
{
    if constexpr (std::same_as<Value, Identifier>) {
        return texts.identifier;
    } else if constexpr (std::same_as<Value, Instant>) {
        return texts.instant;
    } else if constexpr (std::same_as<Value, std::string>) {
        return {{"type", "string"}};
    } else if constexpr (std::same_as<Value, bool>) {
        return {{"type", "boolean"}};
    } else if constexpr (std::same_as<Value, double>) {
        return {{"type", "number"}};
    } else if constexpr (std::same_as<Value, std::int64_t>) {
        return {{"type", "integer"}};
    } else if constexpr (RawEnumeration<Value>) {
        return enumerationSchema<Value>();
    } else {
        static_assert(definitionName<Value> != nullptr, "this type has no schema");
        return definitionReference(definitionName<Value>);
    }
}
template <class Value>
base::SortedJson valueSchema(std::type_identity<std::optional<Value>>, const TextSchemas& texts)
{
    return valueSchema(std::type_identity<Value>(), texts);
}
template <class Value>
base::SortedJson valueSchema(std::type_identity<std::vector<Value>>, const TextSchemas& texts)
{
    return {{"type", "array"}, {"items", valueSchema(std::type_identity<Value>(), texts)}};
}

/// The schema of a value that may also be null.
inline base::SortedJson orNull(base::SortedJson schema)
{
    if (schema.contains("type")) {
        schema["type"] = base::SortedJson::array({schema["type"], "null"});
        return schema;
    }
    return {{"anyOf", base::SortedJson::array({schema, {{"type", "null"}}})}};
}

/// The schema of a record: an object with exactly the members that are written.
template <HasFields Record>
base::SortedJson recordSchema(const TextSchemas& texts)
{
    base::SortedJson properties = base::SortedJson::object();
    std::vector<std::string> required;
    forEachField<Record>([&](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::Value;
        const std::string key(field.key);
        const base::SortedJson schema = valueSchema(std::type_identity<Value>(), texts);
        properties[key] = field.presence == KeyPresence::nullWhenAbsent ? orNull(schema) : schema;
        if (field.presence != KeyPresence::omittedWhenAbsent) {
            required.push_back(key);
        }
    });
    std::sort(required.begin(), required.end());
    return {{"type", "object"},
            {"additionalProperties", false},
            {"required", required},
            {"properties", properties}};
}

}  // namespace quillmere::agent
