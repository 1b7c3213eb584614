// Enumerations with a text for each case. Each has one table, and the functions below work on it.
//
// The properties of an enumeration are free functions beside it, with names by one rule: a property `p` of a
// case is `p(value)`; the case that belongs to an `x` is `fromX<Enumeration>(x)`; a constant `c` of the whole
// enumeration is `c<Enumeration>`.
#pragma once

#include <quillmere/records/base/fatal_error.hpp>

#include <array>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace quillmere {

/// One row of an enumeration's table.
template <class Enumeration>
struct RawText {
    Enumeration value;
    std::string_view text;
};

/// The table of an enumeration, specialised beside it: `rows`, an array in case order, whose elements have
/// at least the members of RawText.
template <class Enumeration>
struct EnumerationTable;

template <class Enumeration>
concept RawEnumeration = std::is_enum_v<Enumeration> && requires
{
    EnumerationTable<Enumeration>::rows;
};

/// Whether row i of a table is about case i, so that a case is the index of its row. Asserted for each table.
template <class Rows>
constexpr bool inCaseOrder(const Rows& rows)
{
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (static_cast<std::size_t>(rows[index].value) != index) {
            return false;
        }
    }
    return true;
}

/// The row of a case in a table in case order. A value that is not a case of the enumeration is a fatal
/// error.
template <class Rows, class Enumeration>
constexpr const auto& rowOf(const Rows& rows, Enumeration value)
{
    const auto index = static_cast<std::size_t>(value);
    if (index >= rows.size()) {
        fatalError("quillmere: an enumeration holds a value that is none of its cases");
    }
    return rows[index];
}

/// The text of a case.
template <RawEnumeration Enumeration>
constexpr std::string_view rawValue(Enumeration value)
{
    static_assert(inCaseOrder(EnumerationTable<Enumeration>::rows));
    return rowOf(EnumerationTable<Enumeration>::rows, value).text;
}

/// The case with this text; absent for any other text.
template <RawEnumeration Enumeration>
constexpr std::optional<Enumeration> fromRawValue(std::string_view text)
{
    for (const auto& row : EnumerationTable<Enumeration>::rows) {
        if (row.text == text) {
            return row.value;
        }
    }
    return std::nullopt;
}

/// Every case, in order.
template <RawEnumeration Enumeration>
constexpr auto allCases()
{
    constexpr auto& rows = EnumerationTable<Enumeration>::rows;
    std::array<Enumeration, rows.size()> cases{};
    for (std::size_t index = 0; index < rows.size(); ++index) {
        cases[index] = rows[index].value;
    }
    return cases;
}

}  // namespace quillmere
