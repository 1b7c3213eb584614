// The form in which a state is written: one member a line, keys sorted, two spaces a level.
#pragma once

#include <quillmere/records/json/fixed_text.hpp>
#include <quillmere/records/json/for_each_field.hpp>
#include <quillmere/records/json/record_tables.hpp>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace quillmere::statefile {

using json::FixedText;

/// The key of a field in the file.
template <class Record, class Value>
constexpr std::string_view keyOf(Value Record::*member)
{
    std::string_view key;
    forEachField<Record>([&](const auto& field) {
        if constexpr (std::is_same_v<decltype(field.member), Value Record::*>) {
            key = field.member == member ? field.key : key;
        }
    });
    return key;
}

/// What stands before the value of a member: line break, indentation, key and colon.
template <std::size_t depth, auto member>
constexpr auto memberStart = [] {
    FixedText<keyOf(member).size()> key;
    std::copy_n(keyOf(member).begin(), key.characters.size(), key.characters.begin());
    return FixedText("\n") + json::spaces<2 * depth>() + FixedText("\"") + key + FixedText("\" : ");
}();

// Around the two long lists of a state, and their elements.
inline constexpr auto questionsStart =
    FixedText("{") + memberStart<1, &QuillmereState::agentQuestions> + FixedText("[");
inline constexpr auto historyStart =
    FixedText(",") + memberStart<1, &QuillmereState::blockHistory> + FixedText("[");
inline constexpr FixedText elementStart = "\n    {";
inline constexpr FixedText elementEnd = "\n    }";
inline constexpr FixedText listEnd = "\n  ]";
inline constexpr FixedText noElements = "]";

}  // namespace quillmere::statefile
