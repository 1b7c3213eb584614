#include "config/toml_text.hpp"

// The parser is compiled into this file alone: a shared library would be loaded at every start.
#define TOML_HEADER_ONLY 1
#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_FORMATTERS 0
#define TOML_MAX_NESTED_VALUES 8
#include <toml++/toml.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace quillmere::config {
namespace {

TextPlace placeOf(const toml::source_region& source)
{
    return {.line = source.begin.line, .column = source.begin.column};
}

TomlValue listOf(const toml::array& array)
{
    std::vector<std::string> texts;
    for (const toml::node& item : array) {
        const auto* const text = item.as_string();
        if (!text) {
            return OtherValue();
        }
        texts.push_back(text->get());
    }
    return texts;
}

TomlValue valueOf(const toml::node& node)
{
    if (const auto* const text = node.as_string()) {
        return text->get();
    }
    if (const auto* const number = node.as_integer()) {
        return number->get();
    }
    if (const auto* const truth = node.as_boolean()) {
        return truth->get();
    }
    if (const auto* const array = node.as_array()) {
        return listOf(*array);
    }
    if (const auto* const table = node.as_table(); table && table->empty()) {
        return EmptyTable();
    }
    return OtherValue();
}

void addEntries(const toml::table& table, const std::vector<std::string>& above,
                std::vector<TomlEntry>& entries)
{
    constexpr std::size_t mostParts = 4;  // no key has so many
    for (const auto& [key, node] : table) {
        std::vector<std::string> path = above;
        path.emplace_back(key.str());
        const toml::table* const below = node.as_table();
        if (below && !below->empty() && path.size() < mostParts) {
            addEntries(*below, path, entries);
        } else {
            entries.push_back({.path = std::move(path),
                               .value = valueOf(node),
                               .keyPlace = placeOf(key.source()),
                               .valuePlace = placeOf(node.source())});
        }
    }
}

bool stands(const TextPlace& one, const TextPlace& other)
{
    return std::tie(one.line, one.column) < std::tie(other.line, other.column);
}

/// The first line with so many full stops that its keys could nest tables deeper than the parser's recursion
/// may go; absent: there is none.
std::optional<std::int64_t> lineOfDeepKeys(std::string_view text)
{
    constexpr int mostFullStops = 500;
    std::int64_t line = 1;
    int fullStops = 0;
    for (const char character : text) {
        fullStops += character == '.' ? 1 : 0;
        if (fullStops > mostFullStops) {
            return line;
        }
        if (character == '\n') {
            ++line;
            fullStops = 0;
        }
    }
    return std::nullopt;
}

std::string escapeOf(unsigned char character)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    return std::string("\\u00") + digits[character / digits.size()] + digits[character % digits.size()];
}

}  // namespace

TomlReading readToml(std::string_view text)
{
    if (const std::optional<std::int64_t> line = lineOfDeepKeys(text)) {
        return TomlError{.description = "the line has more than 500 full stops",
                         .place = {.line = *line, .column = 1}};
    }
    const toml::parse_result result = toml::parse(text);
    if (!result) {
        return TomlError{.description = std::string(result.error().description()),
                         .place = placeOf(result.error().source())};
    }
    std::vector<TomlEntry> entries;
    addEntries(result.table(), {}, entries);
    std::stable_sort(entries.begin(), entries.end(), [](const TomlEntry& one, const TomlEntry& other) {
        return stands(one.keyPlace, other.keyPlace);
    });
    return entries;
}

std::string tomlText(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < ' ' || byte == '\x7F') {
            quoted += escapeOf(byte);
        } else {
            quoted += character == '"' || character == '\\' ? "\\" : "";
            quoted += character;
        }
    }
    return quoted + "\"";
}

std::string tomlKey(std::string_view name)
{
    constexpr std::string_view bare = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-";
    const bool isBare = !name.empty() && name.find_first_not_of(bare) == std::string_view::npos;
    return isBare ? std::string(name) : tomlText(name);
}

}  // namespace quillmere::config
