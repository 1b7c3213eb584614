// Takes whole records in the form in which they are written, without building them.
#pragma once

#include "base/limits.hpp"
#include "statefile/form.hpp"
#include "statefile/tokens.hpp"

#include <quillmere/records/json/table.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillmere::statefile {

/// Whether a record stands at the front of the text exactly as StateStore would write it at a depth, with
/// numbers that are within their bounds (base::boundsOf).
template <class Record, std::size_t depth>
bool takeWrittenRecord(Tokens& tokens);

template <std::size_t depth>
constexpr auto indentation = FixedText("\n") + json::spaces<2 * depth>();

template <class Value, std::size_t depth, auto member>
struct WrittenValue {
    static bool take(Tokens& tokens) { return takeWrittenRecord<Value, depth>(tokens); }
};

template <std::size_t depth, auto member>
struct WrittenValue<std::string, depth, member> {
    static bool take(Tokens& tokens)
    {
        return tokens.take(FixedText("\"")) && tokens.takeRestOfWrittenString();
    }
};

template <std::size_t depth, auto member>
struct WrittenValue<double, depth, member> {
    static bool take(Tokens& tokens)
    {
        double value = 0;
        return tokens.takeNumber(value) && base::boundsOf<member>.contain(value);
    }
};

template <std::size_t depth, auto member>
struct WrittenValue<std::int64_t, depth, member> {
    static bool take(Tokens& tokens)
    {
        double value = 0;
        return tokens.takeInteger(value) && base::boundsOf<member>.contain(value);
    }
};

template <std::size_t depth, auto member>
struct WrittenValue<Identifier, depth, member> {
    static bool take(Tokens& tokens)
    {
        return tokens.take(FixedText("\"")) && tokens.takeIdentifier() && tokens.take(FixedText("\""));
    }
};

template <std::size_t depth, auto member>
struct WrittenValue<Instant, depth, member> {
    static bool take(Tokens& tokens)
    {
        return tokens.take(FixedText("\"")) && tokens.takeInstant() && tokens.take(FixedText("\""));
    }
};

template <RawEnumeration Enumeration, std::size_t depth, auto member>
struct WrittenValue<Enumeration, depth, member> {
    static bool take(Tokens& tokens)
    {
        if (!tokens.take(FixedText("\""))) {
            return false;
        }
        for (const Enumeration each : allCases<Enumeration>()) {
            if (tokens.take(rawValue(each))) {
                return tokens.take(FixedText("\""));
            }
        }
        return false;
    }
};

template <class Value, std::size_t depth, auto member>
struct WrittenValue<std::optional<Value>, depth, member> : WrittenValue<Value, depth, member> {
};

template <class Element, std::size_t depth, auto member>
struct WrittenValue<std::vector<Element>, depth, member> {
    static bool take(Tokens& tokens)
    {
        if (tokens.take(FixedText("[]"))) {
            return true;
        }
        bool isThere = tokens.take(FixedText("["));
        do {
            isThere = isThere && tokens.take(indentation<depth + 1>) &&
                      WrittenValue<Element, depth + 1, member>::take(tokens);
        } while (isThere && tokens.take(FixedText(",")));
        return isThere && tokens.take(indentation<depth> + FixedText("]"));
    }
};

template <class Field, std::size_t depth>
bool takeWrittenMember(Tokens& tokens, bool& isFirst)
{
    constexpr auto start = memberStart<depth, Field::member>;
    const bool isThere = isFirst ? tokens.take(start) : tokens.take(FixedText(",") + start);
    isFirst = isFirst && !isThere;
    return isThere ? WrittenValue<typename Field::Value, depth, Field::member>::take(tokens)
                   : Field::isOptional;
}

template <class Record, std::size_t depth>
bool takeWrittenRecord(Tokens& tokens)
{
    constexpr auto& order = json::sortedRows<Record>;
    bool isFirst = true;
    return tokens.take(FixedText("{"))&& [&]<std::size_t... places>(std::index_sequence<places...>)
    {
        return (takeWrittenMember<json::FieldAt<Record, order[places]>, depth + 1>(tokens, isFirst) && ...);
    }
    (std::make_index_sequence<order.size()>{}) && tokens.take(indentation<depth> + FixedText("}"));
}

}  // namespace quillmere::statefile
