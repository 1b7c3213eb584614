// The configuration: any text is read, what was taken reads back equal, and a value is set beside
// all others.
#include "config/configuration.hpp"
#include "config/keys.hpp"
#include "config/setting.hpp"
#include "config/toml_text.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "fuzz/fuzz_target.hpp"

namespace quillmere::test {
namespace {

template <class Record, std::size_t count>
std::string linesOf(const Record& record, const std::array<config::Key<Record>, count>& keys)
{
    std::string lines;
    for (const config::Key<Record>& key : keys) {
        const std::string value = config::written(record, key);
        lines += value.empty() ? "" : std::string(key.name) + " = " + value + "\n";
    }
    return lines;
}

std::string textOf(const config::Values& values)
{
    std::string text = linesOf(values, config::keys);
    for (const config::Template& each : values.templates) {
        text += "[template." + config::tomlKey(each.name) + "]\n" + linesOf(each, config::templateKeys);
    }
    return text;
}

using ValuesByPath = std::vector<std::pair<std::vector<std::string>, config::TomlValue>>;

/// Without those below `left`.
ValuesByPath valuesOf(const config::TomlReading& reading, const std::string& left)
{
    ValuesByPath values;
    for (const config::TomlEntry& entry : std::get<std::vector<config::TomlEntry>>(reading)) {
        if (entry.path.front() != left) {
            values.emplace_back(entry.path, entry.value);
        }
    }
    std::sort(values.begin(), values.end(),
              [](const auto& one, const auto& other) { return one.first < other.first; });
    return values;
}

/// Characters of names that the library that writes TOML does not escape; such a text is read again and
/// refused before a file has it.
bool isWrittenWrongly(char character)
{
    return character == '\'' || (character >= 0 && character < ' ') || character == 0x7F;
}

bool hasNameWrittenWrongly(const config::TomlReading& reading)
{
    const auto& entries = std::get<std::vector<config::TomlEntry>>(reading);
    return std::any_of(entries.begin(), entries.end(), [](const config::TomlEntry& entry) {
        return std::any_of(entry.path.begin(), entry.path.end(), [](const std::string& part) {
            return std::any_of(part.begin(), part.end(), isWrittenWrongly);
        });
    });
}

/// Setting and removing one value keeps all others.
void requireKept(std::string_view text)
{
    const config::TomlReading before = config::readToml(text);
    if (std::holds_alternative<config::TomlError>(before) || !config::canBeRewritten(text) ||
        hasNameWrittenWrongly(before)) {
        return;
    }
    const std::string with = config::withValue(text, {"block", "focus"}, "\"50m\"");
    for (const std::string& after : {with, config::withoutValue(with, {"block", "focus"})}) {
        const config::TomlReading reading = config::readToml(after);
        if (const auto* const error = std::get_if<config::TomlError>(&reading)) {
            require(error->description == "the line has more than 500 full stops", "what is written is TOML");
            return;
        }
        require(valuesOf(reading, "block") == valuesOf(before, "block"), "and has all other values");
    }
}

void configure(std::string_view text)
{
    config::Configuration configuration;
    config::add(configuration, text, "file");
    for (const config::Problem& problem : configuration.problems) {
        require(!problem.sentence.empty(), "a problem is put into words");
        require(!problem.place || (problem.place->line >= 1 && problem.place->column >= 1),
                "a place is in the text");
    }
    requireKept(text);
    config::Configuration again;
    config::add(again, textOf(configuration.values), "file");
    require(again.problems.empty(), "values that were taken are taken again");
    require(again.values == configuration.values, "and are the same");
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::configure(quillmere::test::textOf(data, size));
    return 0;
}
