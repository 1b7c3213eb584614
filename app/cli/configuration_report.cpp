#include "cli/configuration_report.hpp"

#include "base/refusal.hpp"
#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"
#include "config/key_names.hpp"
#include "config/keys.hpp"
#include "config/setting.hpp"
#include "config/toml_text.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace quillmere::cli {
namespace {

namespace fs = std::filesystem;

/// A value with its place.
struct Line {
    std::string key;
    std::string value;                       ///< as in TOML; empty: not set
    const config::Origin* origin = nullptr;  ///< null: the default
};

const config::Origin* originOf(const config::Configuration& configuration, const std::string& key)
{
    const auto found = configuration.origins.find(key);
    return found == configuration.origins.end() ? nullptr : &found->second;
}

std::string nameOf(const config::Template& each)
{
    return std::string(config::templateTable) + "." + config::tomlKey(each.name);
}

/// The fields that the template sets.
std::vector<Line> linesOf(const config::Template& each, const config::Configuration& configuration)
{
    std::vector<Line> lines;
    for (const auto& key : config::templateKeys) {
        const std::string name = nameOf(each) + "." + std::string(key.name);
        if (std::string value = config::written(each, key); !value.empty()) {
            lines.push_back(
                {.key = name, .value = std::move(value), .origin = originOf(configuration, name)});
        }
    }
    return lines;
}

/// The keys of the table, and the templates.
std::vector<Line> linesOf(const config::Configuration& configuration)
{
    std::vector<Line> lines;
    for (const auto& key : config::keys) {
        const std::string name(key.name);
        lines.push_back({.key = name,
                         .value = config::written(configuration.values, key),
                         .origin = originOf(configuration, name)});
    }
    for (const config::Template& each : configuration.values.templates) {
        const std::vector<Line> fields = linesOf(each, configuration);
        lines.insert(lines.end(), fields.begin(), fields.end());
    }
    return lines;
}

Line lineOf(const config::Configuration& configuration, const std::string& key)
{
    const std::vector<Line> lines = linesOf(configuration);
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const Line& line) { return line.key == key; });
    if (found == lines.end()) {
        throw base::Refusal(base::Refusal::Kind::invalidRequest,
                            config::unknownKeyText(key, key.substr(0, key.find('.'))));
    }
    return *found;
}

/// The content of a text, and any other value as it is.
std::string plain(const std::string& value)
{
    const config::TomlReading reading = config::readToml("value = " + value);
    const auto* const entries = std::get_if<std::vector<config::TomlEntry>>(&reading);
    const auto* const text = entries ? std::get_if<std::string>(&entries->front().value) : nullptr;
    return text ? *text : value;
}

std::string originText(const Line& line)
{
    return line.origin
               ? line.origin->file.filename().string() + ", line " + std::to_string(line.origin->place.line)
               : "default";
}

void printFile(std::ostream& out, const fs::path& file, const char* purpose)
{
    std::error_code unknown;
    const bool isThere = fs::exists(file, unknown);
    out << "# " << base::sanitized(file.string()) << ": " << purpose << (isThere ? "" : "; there is none")
        << '\n';
}

base::Json originJson(const config::Origin* origin)
{
    if (!origin) {
        return nullptr;
    }
    return {{"file", origin->file.string()}, {"line", origin->place.line}, {"column", origin->place.column}};
}

base::Json valueOrNull(const std::string& value)
{
    return value.empty() ? base::Json(nullptr) : base::Json(value);
}

base::Json jsonOf(const Line& line)
{
    return {{"key", line.key}, {"value", valueOrNull(line.value)}, {"origin", originJson(line.origin)}};
}

base::Json problemJson(const config::Problem& problem)
{
    base::Json json = {{"file", problem.file.string()}, {"message", problem.sentence}};
    if (problem.place) {
        json["line"] = problem.place->line;
        json["column"] = problem.place->column;
    }
    return json;
}

}  // namespace

void printConfiguration(std::ostream& out, const config::Configuration& configuration,
                        const fs::path& directory)
{
    if (directory.empty()) {
        out << "# Neither XDG_CONFIG_HOME nor HOME names a directory for the configuration.\n\n";
    } else {
        printFile(out, directory / config::ownFileName, "yours, no program writes it");
        printFile(out, directory / config::preferencesFileName, "written by programs, yours wins");
        out << '\n';
    }
    constexpr std::size_t mostPadding = 40;  // one long value must not push all comments away
    const std::vector<Line> lines = linesOf(configuration);
    for (const Line& line : lines) {
        const std::string text = base::sanitized(line.value.empty() ? "# " + line.key + " is not set"
                                                                    : line.key + " = " + line.value);
        const std::size_t columns = base::columnsOf(text);
        out << text << std::string(columns < mostPadding ? mostPadding - columns : 0, ' ') << "  # "
            << originText(line) << '\n';
    }
}

bool printValue(std::ostream& out, const config::Configuration& configuration, const std::string& key)
{
    const Line line = lineOf(configuration, key);
    if (line.value.empty()) {
        return false;
    }
    out << base::sanitized(plain(line.value)) << '\n';
    return true;
}

base::Json valueJson(const config::Configuration& configuration, const std::string& key)
{
    return jsonOf(lineOf(configuration, key));
}

base::Json configurationJson(const config::Configuration& configuration, const fs::path& directory)
{
    base::Json values = base::Json::array();
    for (const Line& line : linesOf(configuration)) {
        values.push_back(jsonOf(line));
    }
    base::Json problems = base::Json::array();
    for (const config::Problem& problem : configuration.problems) {
        problems.push_back(problemJson(problem));
    }
    return {{"directory", directory.string()}, {"values", values}, {"problems", problems}};
}

}  // namespace quillmere::cli
