// Reads the records from the document tree of another library, with the same tables and the same checks, so
// that only the libraries differ.
//
// A `Dom` provides: Value; isObject, isArray, isString, isNull, isBool; find(object, key), which returns a
// pointer or null; text, boolean; integer and number, which return nothing for another type; forEach. It
// looks keys up only in their usual spelling, which is less work than this system does.
#pragma once

#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/record_tables.hpp>

#include <stdexcept>
#include <string>

namespace quillmere::bench {

[[noreturn]] inline void fail() { throw std::runtime_error("the document is not the record"); }

inline void require(bool condition)
{
    if (!condition) {
        fail();
    }
}

/// An instant as written to files, for libraries that write texts.
inline std::string dateText(Instant instant)
{
    require(json::hasDateText(instant));
    std::string text(json::dateTextLength, ' ');
    json::putDateText(text.data(), instant);
    return text;
}

template <class Dom>
class DomDecoder {
public:
    using Node = typename Dom::Value;

    template <json::HasTable Record>
    static Record record(const Node& node)
    {
        require(Dom::isObject(node));
        return [&]<class... Field>(std::tuple<Field...>*) {
            return Record{field<Field>(node)...};
        }(static_cast<json::Fields<Record>*>(nullptr));
    }

private:
    template <class Field>
    static typename Field::Value field(const Node& object)
    {
        const Node* const node = Dom::find(object, Field::fileKey.view());
        if constexpr (Field::isOptional) {
            if (!node || Dom::isNull(*node)) {
                return std::nullopt;
            }
            return value<typename Field::Value::value_type>(*node);
        } else {
            if constexpr (std::is_same_v<typename Field::Value, Identifier> && Field::mayBeMissing) {
                if (!node || Dom::isNull(*node)) {
                    return Identifier::random();
                }
            }
            require(node != nullptr);
            return value<typename Field::Value>(*node);
        }
    }

    template <class Value>
    static Value value(const Node& node)
    {
        if constexpr (json::HasTable<Value>) {
            return record<Value>(node);
        } else if constexpr (std::is_same_v<Value, bool>) {
            require(Dom::isBool(node));
            return Dom::boolean(node);
        } else if constexpr (std::is_same_v<Value, std::int64_t>) {
            return *present(Dom::integer(node));
        } else if constexpr (std::is_same_v<Value, double>) {
            return *present(Dom::number(node));
        } else if constexpr (std::is_same_v<Value, std::string>) {
            require(Dom::isString(node));
            return std::string(Dom::text(node));
        } else if constexpr (std::is_same_v<Value, Identifier>) {
            require(Dom::isString(node));
            return *present(Identifier::fromText(Dom::text(node)));
        } else if constexpr (std::is_same_v<Value, Instant>) {
            require(Dom::isString(node));
            return *present(json::instantFromDateText(Dom::text(node)));
        } else if constexpr (RawEnumeration<Value>) {
            require(Dom::isString(node));
            return *present(fromRawValue<Value>(Dom::text(node)));
        } else {
            require(Dom::isArray(node));
            Value list;
            Dom::forEach(node, [&](const Node& element) {
                list.push_back(value<typename Value::value_type>(element));
            });
            return list;
        }
    }

    template <class Found>
    static Found present(Found found)
    {
        require(found.has_value());
        return found;
    }
};

}  // namespace quillmere::bench
