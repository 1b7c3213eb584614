// TOML (v1.0.0, toml.io) as a flat list of values with their places.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillmere::config {

/// A value that no key takes: a number with a fraction, a date, a mixed list.
struct OtherValue {
    friend bool operator==(OtherValue, OtherValue) = default;
};

/// A table without any value.
struct EmptyTable {
    friend bool operator==(EmptyTable, EmptyTable) = default;
};

using TomlValue =
    std::variant<OtherValue, EmptyTable, std::string, std::int64_t, bool, std::vector<std::string>>;

/// Both count from 1.
struct TextPlace {
    std::int64_t line;
    std::int64_t column;

    friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

struct TomlEntry {
    std::vector<std::string> path;  ///< {"block", "focus"}
    TomlValue value;
    TextPlace keyPlace;
    TextPlace valuePlace;
};

struct TomlError {
    std::string description;
    TextPlace place;
};

/// The entries in the order of the text, or why it is no TOML.
using TomlReading = std::variant<std::vector<TomlEntry>, TomlError>;

/// A table deeper than any key is an entry with another value. Throws `std::bad_alloc`.
TomlReading readToml(std::string_view text);

/// Whether the values of a text that is TOML can be written again: the library that writes them computes with
/// the negative of every integer, and the lowest one has none.
bool canBeRewritten(std::string_view text);

/// `text` with the value at `path` set to `value`, which is written as in a file: "\"50m\"". All other values
/// are kept, whatever their types, in an order of the writer's own; comments are not. A value that stands
/// where `path` needs a table is replaced. Both texts must be TOML (readToml) that can be rewritten.
/// The result is no TOML where the name of a table has a line break, which the library does not escape: read
/// it again before a file gets it.
std::string withValue(std::string_view text, const std::vector<std::string>& path, std::string_view value);

/// The same without the value at `path`, and without tables that are empty because of it.
std::string withoutValue(std::string_view text, const std::vector<std::string>& path);

/// A text as a value of TOML: in quotation marks, with control characters escaped.
std::string tomlText(std::string_view text);

/// A part of a key, in quotation marks where TOML requires them.
std::string tomlKey(std::string_view name);

}  // namespace quillmere::config
