// Values of one token. For each type: the expected value in words, and `assign`, which reads a token and
// returns whether it could.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/number_text.hpp>
#include <quillmere/records/json/reader.hpp>

#include <cstdint>
#include <string>
#include <utility>

namespace quillmere::json {

template <class Value>
struct Scalar;

template <>
struct Scalar<bool> {
    static std::string expected() { return "true or false"; }
    template <class Json>
    static bool assign(Node<Json>& node, bool& value)
    {
        value = node.token() == "true";
        return value || node.token() == "false";
    }
};

/// Assigns `found` if it is present; returns whether it is.
template <class Value, class Found>
bool assignFound(Value& value, Found&& found)
{
    if (found) {
        value = *std::forward<Found>(found);
    }
    return found.has_value();
}

template <>
struct Scalar<std::int64_t> {
    static std::string expected() { return "a whole number of 64 bits"; }
    template <class Json>
    static bool assign(Node<Json>& node, std::int64_t& value)
    {
        return isNumberText(node.token()) && assignFound(value, integerFromNumberText(node.token()));
    }
};

template <>
struct Scalar<double> {
    static std::string expected() { return "a number within double precision"; }
    template <class Json>
    static bool assign(Node<Json>& node, double& value)
    {
        return isNumberText(node.token()) && assignFound(value, doubleFromNumberText(node.token()));
    }
};

template <>
struct Scalar<std::string> {
    static std::string expected() { return "a text"; }
    template <class Json>
    static bool assign(Node<Json>& node, std::string& value)
    {
        if (!node.isString()) {
            return false;
        }
        value = node.string();
        return true;
    }
};

template <>
struct Scalar<Identifier> {
    static std::string expected() { return "an identifier such as 9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10"; }
    template <class Json>
    static bool assign(Node<Json>& node, Identifier& value)
    {
        return node.isString() && assignFound(value, node.parsedString(Identifier::fromText));
    }
};

template <>
struct Scalar<Instant> {
    static std::string expected() { return "an instant such as 2026-01-31T09:15:00Z"; }
    template <class Json>
    static bool assign(Node<Json>& node, Instant& value)
    {
        return node.isString() && assignFound(value, node.parsedString(instantFromDateText));
    }
};

template <RawEnumeration Enumeration>
struct Scalar<Enumeration> {
    static std::string expected()
    {
        std::string names;
        for (const auto& row : EnumerationTable<Enumeration>::rows) {
            names += names.empty() ? "one of \"" : ", \"";
            names += row.text;
            names += '"';
        }
        return names;
    }
    template <class Json>
    static bool assign(Node<Json>& node, Enumeration& value)
    {
        return node.isString() && assignFound(value, node.parsedString(fromRawValue<Enumeration>));
    }
};

}  // namespace quillmere::json
